#pragma once

#include "tests/support/FormView.h"
