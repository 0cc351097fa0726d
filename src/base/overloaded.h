#pragma once

namespace tamberline {

/// Combines several callables into one, for std::visit.
template <typename... Callables>
struct Overloaded : Callables... {
  using Callables::operator()...;
};

template <typename... Callables>
Overloaded(Callables...) -> Overloaded<Callables...>;

} // namespace tamberline
