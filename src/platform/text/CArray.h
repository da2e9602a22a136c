#pragma once

#include "platform/text/Export.h"

#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

/// The failure of an access outside an array. It is the one exception that may cross the library's
/// boundary: it tells of a fault in the caller or in the installed item definitions.
class TOVI_EXPORT InvalidArgument : public std::invalid_argument
{
public:
    using std::invalid_argument::invalid_argument;
};

/// Throws InvalidArgument for an access at \p index of an array of \p size elements.
[[noreturn]] TOVI_EXPORT void ThrowOutsideArray(int index, int size);

/// A growable array with int sizes. Every access is checked: an index below 0 or not below
/// GetSize() throws InvalidArgument.
template <class T>
class CArray
{
public:
    CArray() = default;
    CArray(std::initializer_list<T> values) : elements(values) {}

    int GetSize() const { return static_cast<int>(elements.size()); }
    bool IsEmpty() const { return elements.empty(); }

    T& operator[](int index) { return elements[Checked(index)]; }
    const T& operator[](int index) const { return elements[Checked(index)]; }
    const T& GetAt(int index) const { return elements[Checked(index)]; }
    void SetAt(int index, T value) { elements[Checked(index)] = std::move(value); }

    /// Appends \p value and returns its index.
    int Add(T value)
    {
        elements.push_back(std::move(value));
        return GetSize() - 1;
    }

    /// Puts \p value in front of the element at \p index; an index equal to GetSize() appends.
    void InsertAt(int index, T value)
    {
        if (index != GetSize()) Checked(index);
        elements.insert(elements.begin() + index, std::move(value));
    }

    void RemoveAt(int index) { elements.erase(elements.begin() + Checked(index)); }
    void RemoveAll() { elements.clear(); }
    /// Prepares room for \p count elements (at least 0) without changing the size.
    void Reserve(int count) { elements.reserve(static_cast<std::size_t>(count)); }

    auto begin() { return elements.begin(); }
    auto end() { return elements.end(); }
    auto begin() const { return elements.begin(); }
    auto end() const { return elements.end(); }

    bool operator==(const CArray&) const = default;

private:
    std::size_t Checked(int index) const
    {
        if (index < 0 || index >= GetSize()) [[unlikely]]
            ThrowOutsideArray(index, GetSize());
        return static_cast<std::size_t>(index);
    }

    std::vector<T> elements;
};

/// Numbers of 0 to 65535.
using CWordArray = CArray<unsigned short>;
