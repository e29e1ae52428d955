#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace kelo {

// An owning list of numbered objects. T answers its number through `int KeyNo() const`.
//
// Semantics of the model's lists: `Add` keeps the list sorted by number and an object of a number
// that is already there replaces the old one in its place. The objects live in a tree ordered by
// number, so adding, finding and deleting cost O(log n) in any order of numbers. Walks and
// positions go through a vector of the present order, made again only after the list changed,
// which costs no more than the walk itself. A list can be put in another order (the analysis
// sorts a copy of the node list by coordinate); lookups by number stay O(log n) then.
template <class T> class CObList {
public:
    CObList() = default;
    CObList(const CObList& other) { CopyFrom(other); }
    CObList& operator=(const CObList& other) {
        if (this != &other) CopyFrom(other);
        return *this;
    }
    CObList(CObList&&) noexcept = default;
    CObList& operator=(CObList&&) noexcept = default;

    // Takes over `obj`. Answers the object now held under its number.
    T* Add(std::unique_ptr<T> obj) {
        if (!obj) return nullptr;
        const int no = obj->KeyNo();
        T* raw = obj.get();
        auto found = m_map.find(no);
        if (found != m_map.end()) {
            T* old = found->second.get();
            if (m_custom || m_orderValid) {
                for (T*& p : m_order)
                    if (p == old) p = raw;
            }
            found->second = std::move(obj);
            // The object now lives in the map, which owns it: raw stays valid.
            // cppcheck-suppress returnDanglingLifetime
            return raw;
        }
        const bool atEnd = m_map.empty() || m_map.rbegin()->first < no;
        m_map.emplace(no, std::move(obj));
        if (m_custom) {
            auto it = std::find_if(m_order.begin(), m_order.end(),
                                   [no](const T* p) { return p->KeyNo() > no; });
            m_order.insert(it, raw);
        } else if (m_orderValid && atEnd) {
            m_order.push_back(raw);
        } else {
            m_orderValid = false;
        }
        return raw;
    }
    template <class... A> T* Emplace(A&&... args) {
        return Add(std::make_unique<T>(std::forward<A>(args)...));
    }

    T* Get(int no) const {
        auto it = m_map.find(no);
        return it == m_map.end() ? nullptr : it->second.get();
    }
    bool Has(int no) const { return m_map.count(no) != 0; }

    // Removes and deletes the object of that number; no match does nothing. Answers 1 if removed.
    int Delete(int no) { return Release(no) ? 1 : 0; }
    // Hands the object of that number to the caller without deleting it.
    std::unique_ptr<T> Release(int no) {
        auto it = m_map.find(no);
        if (it == m_map.end()) return nullptr;
        std::unique_ptr<T> out = std::move(it->second);
        m_map.erase(it);
        if (m_custom)
            m_order.erase(std::find(m_order.begin(), m_order.end(), out.get()));
        else
            m_orderValid = false;
        return out;
    }

    // Removes and deletes, in one pass, every object for which pred(object) holds; the others keep
    // their place and their address. Answers how many went.
    template <class P> int DeleteIf(P&& pred) {
        int removed = 0;
        for (auto it = m_map.begin(); it != m_map.end();) {
            if (pred(static_cast<const T&>(*it->second))) {
                if (m_custom)
                    m_order.erase(std::find(m_order.begin(), m_order.end(), it->second.get()));
                it = m_map.erase(it);
                ++removed;
            } else {
                ++it;
            }
        }
        if (removed > 0 && !m_custom) m_orderValid = false;
        return removed;
    }

    void RemoveAll() {
        m_map.clear();
        m_order.clear();
        m_orderValid = true;
        m_custom = false;
    }

    // The lowest number from 1 that no entry has.
    int GetFirstFreeNo() const {
        int candidate = 1;
        for (auto it = m_map.lower_bound(1); it != m_map.end() && it->first == candidate; ++it)
            ++candidate;
        return candidate;
    }

    std::size_t GetCount() const { return m_map.size(); }
    bool IsEmpty() const { return m_map.empty(); }

    // Position of an object in the list's present order, -1 when absent.
    int GetPos(int no) const {
        const T* p = Get(no);
        if (!p) return -1;
        const std::vector<T*>& order = Order();
        auto it = m_custom ? std::find(order.begin(), order.end(), p)
                           : std::lower_bound(order.begin(), order.end(), no,
                                              [](const T* a, int n) { return a->KeyNo() < n; });
        return static_cast<int>(it - order.begin());
    }
    T* At(std::size_t pos) const { return Order()[pos]; }
    T* First() const {
        if (m_map.empty()) return nullptr;
        return m_custom ? m_order.front() : m_map.begin()->second.get();
    }
    T* Last() const {
        if (m_map.empty()) return nullptr;
        return m_custom ? m_order.back() : m_map.rbegin()->second.get();
    }

    // Re-orders the list by a caller's rule; number lookups stay valid. Later `Add` calls insert
    // before the first entry of a higher number, as in a number-sorted list.
    void SortBy(const std::function<bool(const T&, const T&)>& less) {
        std::vector<T*> order = Order();
        std::stable_sort(order.begin(), order.end(),
                         [&less](const T* a, const T* b) { return less(*a, *b); });
        m_order = std::move(order);
        m_custom = true;
    }
    void SortByNumber() {
        m_custom = false;
        m_orderValid = false;
    }

    using const_iterator = typename std::vector<T*>::const_iterator;
    const_iterator begin() const { return Order().cbegin(); }
    const_iterator end() const { return Order().cend(); }

private:
    const std::vector<T*>& Order() const {
        if (!m_custom && !m_orderValid) {
            m_order.clear();
            m_order.reserve(m_map.size());
            for (const auto& entry : m_map) m_order.push_back(entry.second.get());
            m_orderValid = true;
        }
        return m_order;
    }
    void CopyFrom(const CObList& other) {
        RemoveAll();
        for (const auto& entry : other.m_map)
            m_map.emplace_hint(m_map.end(), entry.first, std::make_unique<T>(*entry.second));
        m_orderValid = false;
        if (other.m_custom) {
            m_order.clear();
            for (const T* p : other.m_order) m_order.push_back(Get(p->KeyNo()));
            m_custom = true;
        }
    }

    std::map<int, std::unique_ptr<T>> m_map;
    mutable std::vector<T*> m_order;
    mutable bool m_orderValid = true;
    bool m_custom = false;
};

// An owning list without numbers: order of adding, duplicates allowed, deep copy.
template <class T> class COwnedList {
public:
    COwnedList() = default;
    COwnedList(const COwnedList& other) { *this = other; }
    COwnedList& operator=(const COwnedList& other) {
        if (this == &other) return *this;
        m_items.clear();
        m_items.reserve(other.m_items.size());
        for (const auto& p : other.m_items) m_items.push_back(std::make_unique<T>(*p));
        return *this;
    }
    COwnedList(COwnedList&&) noexcept = default;
    COwnedList& operator=(COwnedList&&) noexcept = default;

    T* Add(std::unique_ptr<T> obj) {
        m_items.push_back(std::move(obj));
        return m_items.back().get();
    }
    template <class... A> T* Emplace(A&&... args) {
        return Add(std::make_unique<T>(std::forward<A>(args)...));
    }
    void RemoveAt(std::size_t pos) {
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(pos));
    }
    void RemoveAll() { m_items.clear(); }
    std::size_t GetCount() const { return m_items.size(); }
    bool IsEmpty() const { return m_items.empty(); }
    T* At(std::size_t pos) const { return m_items[pos].get(); }

    class const_iterator {
    public:
        explicit const_iterator(typename std::vector<std::unique_ptr<T>>::const_iterator it)
            : m_it(it) {}
        T* operator*() const { return m_it->get(); }
        const_iterator& operator++() {
            ++m_it;
            return *this;
        }
        bool operator!=(const const_iterator& o) const { return m_it != o.m_it; }
        bool operator==(const const_iterator& o) const { return m_it == o.m_it; }

    private:
        typename std::vector<std::unique_ptr<T>>::const_iterator m_it;
    };
    const_iterator begin() const { return const_iterator(m_items.cbegin()); }
    const_iterator end() const { return const_iterator(m_items.cend()); }

private:
    std::vector<std::unique_ptr<T>> m_items;
};

} // namespace kelo
