// The diagnostics' part of the Session is made and renewed here, where its type is whole.
#include "base/base_state.h"

#include <memory>

namespace hlyd {

template <>
BaseState* SessionPartLife<BaseState>::make() {
    return new BaseState;
}

template <>
void SessionPartLife<BaseState>::free(BaseState* part) {
    delete part;
}

template <>
void SessionPartLife<BaseState>::end(BaseState& part) {
    std::destroy_at(&part);
}

// A renewed run's log starts its clock now, as a run's first line would, not at its first write
// later on.
template <>
void SessionPartLife<BaseState>::begin(BaseState& part) {
    std::construct_at(&part);
    part.log = std::make_unique<cLog>();
}

}  // namespace hlyd
