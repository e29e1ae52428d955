#pragma once

#include "geometry/SectPoint.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace kelo {

// An owning list of section points in the order of the outline. The order is the geometry: an
// outline runs from point to point as listed, so points are not kept sorted and the same number
// may stand twice (a ring that closes on its first point). Copies are deep.
class CSectPointList {
public:
    using Items = std::vector<std::unique_ptr<CSectPoint>>;

    CSectPointList() = default;
    CSectPointList(const CSectPointList& other) { *this = other; }
    CSectPointList& operator=(const CSectPointList& other);
    CSectPointList(CSectPointList&&) noexcept = default;
    CSectPointList& operator=(CSectPointList&&) noexcept = default;

    // Appends at the tail.
    CSectPoint* Add(std::unique_ptr<CSectPoint> point);
    // Before the first point of a greater number, or at the tail.
    CSectPoint* InsertByNumber(std::unique_ptr<CSectPoint> point);
    CSectPoint* InsertAt(std::size_t pos, std::unique_ptr<CSectPoint> point);
    void RemoveAt(std::size_t pos);
    void RemoveAll() { m_items.clear(); }

    // The first point of that number (within 1e-5), null when there is none.
    CSectPoint* Find(double no) const;
    // Position of a point held in the list, -1 when it isn't.
    int IndexOf(const CSectPoint* point) const;

    std::size_t GetCount() const { return m_items.size(); }
    bool IsEmpty() const { return m_items.empty(); }
    CSectPoint* At(std::size_t pos) const {
        return pos < m_items.size() ? m_items[pos].get() : nullptr;
    }
    // Neighbours in ring order: the last point's next is the first.
    CSectPoint* NextInRing(std::size_t pos) const;
    CSectPoint* PrevInRing(std::size_t pos) const;

    Items& GetItems() { return m_items; }
    const Items& GetItems() const { return m_items; }

    Items::const_iterator begin() const { return m_items.begin(); }
    Items::const_iterator end() const { return m_items.end(); }

private:
    Items m_items;
};

} // namespace kelo
