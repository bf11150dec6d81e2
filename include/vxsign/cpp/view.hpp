// Some elements in a row that belong to somebody else.
#ifndef VXSIGN_CPP_VIEW_HPP
#define VXSIGN_CPP_VIEW_HPP

#include <cstddef>
#include <initializer_list>
#include <utility>

namespace vxsign {

// As an argument: takes a std::span, whatever else has data() and size(), a list in braces, or a pointer and a size.
template <class T>
class View
{
public:
    View(const T* elements, std::size_t count) : first(elements), number(count) {}
    View(std::initializer_list<T> list) : View(list.begin(), list.size()) {}
    template <class Container, class = decltype(static_cast<const T*>(std::declval<const Container&>().data()))>
    View(const Container& container) : View(container.data(), container.size())
    {
    }

    const T* begin() const { return first; }
    const T* end() const { return first + number; }
    std::size_t size() const { return number; }

private:
    const T* first;
    std::size_t number;
};

} // namespace vxsign

#endif
