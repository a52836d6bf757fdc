#include "platform/host/ObjectFactory.h"

#include <utility>

#include "platform/host/CentroApi.h"
#include "platform/host/PersonSearch.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {

ObjectFactory::ObjectFactory() { Reset(); }

void ObjectFactory::Reset() {
  makers_.clear();
  Register(CentroApi::kProgId, [] { return std::make_unique<CentroApi>(); });
  Register(PersonSearch::kProgId, [] { return std::make_unique<PersonSearch>(); });
}

void ObjectFactory::Register(std::string_view progId, Maker maker) {
  makers_[AsciiLower(progId)] = std::move(maker);
}

std::unique_ptr<HostObject> ObjectFactory::Create(std::string_view progId) const {
  const auto found = makers_.find(AsciiLower(progId));
  if (found == makers_.end())
    throw RuntimeError(ErrorNumber::CantCreateObject,
                       "El componente " + std::string(progId) + " no está instalado");
  return found->second();
}

}  // namespace quorvane
