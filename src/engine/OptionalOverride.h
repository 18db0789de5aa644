#pragma once

#include <optional>

namespace engine {

// A more specific level of the style cascade replaces only what it sets itself.
template <typename T> void overrideIfSet(std::optional<T>& mine, const std::optional<T>& theirs) {
    if (theirs)
        mine = theirs;
}

} // namespace engine
