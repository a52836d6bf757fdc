#pragma once

namespace quorvane {
class Form;
}

namespace quorvane::zendria {

/// Marks the fields that the user has to fill in, and their labels: every list of which an entry
/// has to be picked. The label of a list is the nearest one to its left, else the nearest above.
void MarkMandatoryFields(Form& form);

}  // namespace quorvane::zendria
