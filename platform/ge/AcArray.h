#pragma once

#include <initializer_list>
#include <vector>

/// Growable list with the published names of the platform's arrays. Indices count from 0.
template <class T>
class AcArray {
public:
    AcArray() = default;
    AcArray(std::initializer_list<T> items) : items_(items) {}

    int length() const { return static_cast<int>(items_.size()); }
    bool isEmpty() const { return items_.empty(); }
    /// Appends and returns the new item's index.
    int append(const T& item) {
        items_.push_back(item);
        return length() - 1;
    }
    AcArray& append(const AcArray& other) {
        items_.insert(items_.end(), other.items_.begin(), other.items_.end());
        return *this;
    }
    /// Resizes; new items are value-initialised.
    void setLogicalLength(int n) { items_.resize(static_cast<std::size_t>(n)); }
    void setPhysicalLength(int n) { items_.reserve(static_cast<std::size_t>(n)); }
    void removeAt(int i) { items_.erase(items_.begin() + i); }
    const T& at(int i) const { return items_[static_cast<std::size_t>(i)]; }
    T& at(int i) { return items_[static_cast<std::size_t>(i)]; }
    const T& operator[](int i) const { return at(i); }
    T& operator[](int i) { return at(i); }
    const T* asArrayPtr() const { return items_.data(); }
    /// The items themselves, for what appends many.
    std::vector<T>& asVector() { return items_; }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<T> items_;
};

using AcDbIntArray = AcArray<int>;
using AcDbVoidPtrArray = AcArray<void*>;
