#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace kelo {

// An owning list kept sorted by station, for what a reference line holds by station rather than by
// number (key sections, road profiles). T answers `double GetStationNo() const`.
//
// A new entry goes in before the first entry of a greater station; one of an equal station
// replaces the old entry in its place. Copies are deep, through T's copy constructor.
template <class T> class CStationList {
public:
    CStationList() = default;
    CStationList(const CStationList& other) { *this = other; }
    CStationList& operator=(const CStationList& other) {
        if (this == &other) return *this;
        m_items.clear();
        m_items.reserve(other.m_items.size());
        for (const auto& p : other.m_items) m_items.push_back(std::make_unique<T>(*p));
        return *this;
    }
    CStationList(CStationList&&) noexcept = default;
    CStationList& operator=(CStationList&&) noexcept = default;

    // Takes over `obj`; answers the object now held at its station.
    T* Add(std::unique_ptr<T> obj) {
        if (!obj) return nullptr;
        const double st = obj->GetStationNo();
        auto it = std::lower_bound(
            m_items.begin(), m_items.end(), st,
            [](const std::unique_ptr<T>& p, double value) { return p->GetStationNo() < value; });
        if (it != m_items.end() && (*it)->GetStationNo() == st)
            *it = std::move(obj);
        else
            it = m_items.insert(it, std::move(obj));
        return it->get();
    }
    // Removes and deletes that object; answers 1 if it was held.
    int Remove(const T* p) {
        const int pos = IndexOf(p);
        if (pos < 0) return 0;
        m_items.erase(m_items.begin() + pos);
        return 1;
    }
    void RemoveAll() { m_items.clear(); }

    // Position in the list, -1 when not held.
    int IndexOf(const T* p) const {
        for (std::size_t i = 0; i < m_items.size(); ++i)
            if (m_items[i].get() == p) return static_cast<int>(i);
        return -1;
    }
    // Index of the first entry whose station is above `station` (the count when there is none),
    // found by bisection: lines with sections every few metres hold thousands of them.
    std::size_t FirstAbove(double station) const {
        auto it = std::upper_bound(
            m_items.begin(), m_items.end(), station,
            [](double value, const std::unique_ptr<T>& p) { return value < p->GetStationNo(); });
        return static_cast<std::size_t>(it - m_items.begin());
    }
    // The first entry less than `tolerance` from `station`, or null.
    T* FindNear(double station, double tolerance) const {
        for (std::size_t i = FirstAbove(station - tolerance); i < m_items.size(); ++i) {
            const double d = m_items[i]->GetStationNo() - station;
            if (d >= tolerance) break;
            if (std::fabs(d) < tolerance) return m_items[i].get();
        }
        return nullptr;
    }
    // The last entry at or before `station`, or null.
    T* LastAtOrBefore(double station) const {
        const std::size_t i = FirstAbove(station);
        return i > 0 ? m_items[i - 1].get() : nullptr;
    }
    std::size_t GetCount() const { return m_items.size(); }
    bool IsEmpty() const { return m_items.empty(); }
    T* At(std::size_t pos) const { return m_items[pos].get(); }
    T* First() const { return m_items.empty() ? nullptr : m_items.front().get(); }
    T* Last() const { return m_items.empty() ? nullptr : m_items.back().get(); }

    class const_iterator {
    public:
        explicit const_iterator(typename std::vector<std::unique_ptr<T>>::const_iterator it)
            : m_it(it) {}
        T* operator*() const { return m_it->get(); }
        const_iterator& operator++() {
            ++m_it;
            return *this;
        }
        bool operator==(const const_iterator& o) const { return m_it == o.m_it; }
        bool operator!=(const const_iterator& o) const { return m_it != o.m_it; }

    private:
        typename std::vector<std::unique_ptr<T>>::const_iterator m_it;
    };
    const_iterator begin() const { return const_iterator(m_items.cbegin()); }
    const_iterator end() const { return const_iterator(m_items.cend()); }

private:
    std::vector<std::unique_ptr<T>> m_items;
};

} // namespace kelo
