#pragma once

namespace tamberline {

/// One callable out of several, for std::visit.
template <typename... Callables>
struct Overloaded : Callables... {
  using Callables::operator()...;
};

template <typename... Callables>
Overloaded(Callables...) -> Overloaded<Callables...>;

} // namespace tamberline
