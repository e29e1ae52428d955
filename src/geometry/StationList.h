#pragma once

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
        auto it = m_items.begin();
        while (it != m_items.end() && (*it)->GetStationNo() < st) ++it;
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
