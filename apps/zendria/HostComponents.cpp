#include "apps/zendria/HostComponents.h"

#include <memory>

#include "apps/zendria/ZendriaCentroApi.h"
#include "apps/zendria/ZendriaPersonSearch.h"
#include "platform/host/Application.h"

namespace quorvane::zendria {

void RegisterHostComponents() {
  auto& objects = Application::Instance().Objects();
  objects.Register(CentroApi::kProgId, [] { return std::make_unique<ZendriaCentroApi>(); });
  objects.Register(PersonSearch::kProgId, [] { return std::make_unique<ZendriaPersonSearch>(); });
}

}  // namespace quorvane::zendria
