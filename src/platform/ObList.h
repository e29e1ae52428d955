#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kelo {

// An owning list of numbered objects. T answers its number through `int KeyNo() const`.
//
// Semantics of the model's lists: `Add` keeps the list sorted by number and an object of a number
// that is already there replaces the old one in its place. Lookups by number go through a hash
// index, so they stay O(1) when the list is re-ordered (the analysis sorts a copy of the node list
// by coordinate). Objects added out of number order are appended and the list is put back in
// number order when it is next walked, so that adding n objects in any order costs O(n log n).
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
        auto found = m_index.find(no);
        if (found != m_index.end()) {
            m_items[PositionOf(found->second)] = std::move(obj);
            found->second = raw;
            return raw;
        }
        if (m_order == Order::Custom) {
            auto it = std::find_if(m_items.begin(), m_items.end(),
                                   [no](const std::unique_ptr<T>& p) { return p->KeyNo() > no; });
            m_items.insert(it, std::move(obj));
        } else {
            if (!m_items.empty() && m_items.back()->KeyNo() > no) m_order = Order::Pending;
            m_items.push_back(std::move(obj));
        }
        m_index.emplace(no, raw);
        return raw;
    }
    template <class... A> T* Emplace(A&&... args) {
        return Add(std::make_unique<T>(std::forward<A>(args)...));
    }

    T* Get(int no) const {
        auto it = m_index.find(no);
        return it == m_index.end() ? nullptr : it->second;
    }
    bool Has(int no) const { return m_index.count(no) != 0; }

    // Removes and deletes the object of that number; no match does nothing. Answers 1 if removed.
    int Delete(int no) {
        auto it = m_index.find(no);
        if (it == m_index.end()) return 0;
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(PositionOf(it->second)));
        m_index.erase(it);
        return 1;
    }
    // Hands the object of that number to the caller without deleting it.
    std::unique_ptr<T> Release(int no) {
        auto it = m_index.find(no);
        if (it == m_index.end()) return nullptr;
        const std::size_t pos = PositionOf(it->second);
        std::unique_ptr<T> out = std::move(m_items[pos]);
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(pos));
        m_index.erase(it);
        return out;
    }

    // Removes and deletes, in one pass, every object for which pred(object) holds; the others keep
    // their place and their address. Answers how many went.
    template <class P> int DeleteIf(P&& pred) {
        Settle();
        const auto end =
            std::remove_if(m_items.begin(), m_items.end(), [&](const std::unique_ptr<T>& p) {
                if (!pred(static_cast<const T&>(*p))) return false;
                m_index.erase(p->KeyNo());
                return true;
            });
        const auto removed = static_cast<int>(m_items.end() - end);
        m_items.erase(end, m_items.end());
        return removed;
    }

    void RemoveAll() {
        m_items.clear();
        m_index.clear();
        m_order = Order::Sorted;
    }

    // The lowest number from 1 that no entry has.
    int GetFirstFreeNo() const {
        for (int i = 1;; ++i)
            if (!Has(i)) return i;
    }

    std::size_t GetCount() const { return m_items.size(); }
    bool IsEmpty() const { return m_items.empty(); }

    // Position of an object in the list's present order, -1 when absent.
    int GetPos(int no) const {
        const T* p = Get(no);
        return p ? static_cast<int>(PositionOf(p)) : -1;
    }
    T* At(std::size_t pos) const {
        Settle();
        return m_items[pos].get();
    }
    T* First() const { return m_items.empty() ? nullptr : At(0); }
    T* Last() const { return m_items.empty() ? nullptr : At(m_items.size() - 1); }

    // Re-orders the list by a caller's rule; number lookups stay valid. Later `Add` calls insert
    // before the first entry of a higher number, as in a number-sorted list.
    void SortBy(const std::function<bool(const T&, const T&)>& less) {
        Settle();
        std::stable_sort(m_items.begin(), m_items.end(),
                         [&less](const std::unique_ptr<T>& a, const std::unique_ptr<T>& b) {
                             return less(*a, *b);
                         });
        m_order = Order::Custom;
    }
    void SortByNumber() {
        m_order = Order::Pending;
        Settle();
    }

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T*;
        using difference_type = std::ptrdiff_t;
        using pointer = T* const*;
        using reference = T*;
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
    const_iterator begin() const {
        Settle();
        return const_iterator(m_items.cbegin());
    }
    const_iterator end() const { return const_iterator(m_items.cend()); }

private:
    enum class Order { Sorted, Pending, Custom };

    void Settle() const {
        if (m_order != Order::Pending) return;
        std::stable_sort(m_items.begin(), m_items.end(),
                         [](const std::unique_ptr<T>& a, const std::unique_ptr<T>& b) {
                             return a->KeyNo() < b->KeyNo();
                         });
        m_order = Order::Sorted;
    }
    std::size_t PositionOf(const T* p) const {
        Settle();
        if (m_order == Order::Sorted) {
            const int no = p->KeyNo();
            auto it =
                std::lower_bound(m_items.begin(), m_items.end(), no,
                                 [](const std::unique_ptr<T>& a, int n) { return a->KeyNo() < n; });
            while (it != m_items.end() && it->get() != p) ++it;
            return static_cast<std::size_t>(it - m_items.begin());
        }
        auto it = std::find_if(m_items.begin(), m_items.end(),
                               [p](const std::unique_ptr<T>& a) { return a.get() == p; });
        return static_cast<std::size_t>(it - m_items.begin());
    }
    void CopyFrom(const CObList& other) {
        RemoveAll();
        other.Settle();
        m_items.reserve(other.m_items.size());
        for (const auto& p : other.m_items) {
            m_items.push_back(std::make_unique<T>(*p));
            m_index.emplace(m_items.back()->KeyNo(), m_items.back().get());
        }
        m_order = other.m_order;
    }

    mutable std::vector<std::unique_ptr<T>> m_items;
    std::unordered_map<int, T*> m_index;
    mutable Order m_order = Order::Sorted;
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
