#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace tamberline {

/// An immutable list whose copies share their elements, so copying a record with a whole subtree
/// costs the same as copying a leaf. The element type may be incomplete where a list of it is
/// declared. Copies may be passed between threads.
template <typename Element>
class SharedList {
public:
  SharedList() = default;
  explicit(false) SharedList(std::vector<Element> elements)
      : elements_(elements.empty()
                      ? nullptr
                      : std::make_shared<const std::vector<Element>>(std::move(elements))) {}
  explicit(false) SharedList(std::initializer_list<Element> elements)
      : SharedList(std::vector<Element>(elements)) {}

  bool empty() const { return elements_ == nullptr; }
  std::size_t size() const { return empty() ? 0 : elements_->size(); }
  const Element* begin() const { return empty() ? nullptr : elements_->data(); }
  const Element* end() const { return begin() + size(); }
  const Element& operator[](std::size_t index) const { return (*elements_)[index]; }

private:
  std::shared_ptr<const std::vector<Element>> elements_;
};

} // namespace tamberline
