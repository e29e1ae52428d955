#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace kelo {

// The parameters of a design set by their place in the record (1 is the first), as the design
// parameter commands give them. Each place names an integer or a floating member of `Owner`; a
// value set into an integer member is truncated. A place outside the record reads -1.0 and takes
// no value.
template <class Owner, int N> class CParamTable {
public:
    // One place of the record: exactly one of the two members is set.
    class Place {
    public:
        constexpr explicit Place(double Owner::*member) : DoubleMember(member) {}
        constexpr explicit Place(int Owner::*member) : IntMember(member) {}

        double Get(const Owner& set) const {
            return IntMember ? set.*IntMember : set.*DoubleMember;
        }
        void Set(Owner& set, double v) const {
            if (IntMember)
                set.*IntMember = static_cast<int>(v);
            else
                set.*DoubleMember = v;
        }

    private:
        double Owner::*DoubleMember = nullptr;
        int Owner::*IntMember = nullptr;
    };

    // One member for each place, in the order of the record.
    template <class... Members>
    constexpr explicit CParamTable(Members... members) : Places{Place(members)...} {
        static_assert(sizeof...(Members) == N, "one member for each place of the record");
    }

    double Get(const Owner& set, int field) const {
        return IsPlace(field) ? At(field).Get(set) : -1.0;
    }
    // 1 when the place exists and took the value, else 0.
    int Set(Owner& set, int field, double v) const {
        if (!IsPlace(field)) return 0;
        At(field).Set(set, v);
        return 1;
    }
    // 1 if any parameter of `other` differs from that of `set` by 1e-5 or more, or if there is
    // no other set; 0 when all agree.
    int Compare(const Owner& set, const Owner* other) const {
        if (!other) return 1;
        const auto differs = [&](const Place& p) {
            return std::fabs(p.Get(set) - p.Get(*other)) >= 1e-5;
        };
        return std::any_of(Places.begin(), Places.end(), differs) ? 1 : 0;
    }

private:
    static constexpr bool IsPlace(int field) { return field >= 1 && field <= N; }
    const Place& At(int field) const { return Places[static_cast<std::size_t>(field - 1)]; }

    std::array<Place, N> Places;
};

} // namespace kelo
