#pragma once

namespace norvik {

// Lets std::visit take one lambda per alternative.
template <class... Ts> struct Overloaded : Ts... { using Ts::operator()...; };
// clang before 17 deduces no aggregate template arguments by itself
template <class... Ts> Overloaded(Ts...) -> Overloaded<Ts...>;

} // namespace norvik
