#include "command/AliasTable.h"

#include "platform/Text.h"

#include <algorithm>
#include <iterator>

namespace kelo {

namespace {

struct ReservedEntry {
    const char* name;
    double value;
};

// The language's own words, as entered. CALC and BEAM are entered twice; the later value stands,
// so CALC is 0 and BEAM (a shear model kind) is 2, like WEB.
// clang-format off
constexpr ReservedEntry kReserved[] = {
    // Concrete, steel and seismic design codes
    {"NS3473_5", 101}, {"NS3473_4", 102}, {"BBK94", 103}, {"BS5400", 104}, {"NS_EN_1992", 105},
    {"NS3472", 201}, {"NS3472_3", 202}, {"NS_EN_1998", 301},
    // Switches
    {"CALC", -1}, {"OFF", 0}, {"ON", 1}, {"NO", 0}, {"YES", 1}, {"NA", 0}, {"N/A", 0}, {"ALL", -1},
    {"RES", 1}, {"COPY", -10}, {"OPEN", 0}, {"CLOSED", 1}, {"CALC", 0},
    // Comparison operators of IF and ELSEIF
    {"EQ", 1}, {"LT", 2}, {"GT", 3}, {"LE", 4}, {"GE", 5}, {"NE", 6}, {"LTE", 4}, {"GTE", 5},
    // Limit states
    {"ULS", 1}, {"PLS", 2}, {"SLS", 3}, {"FLS", 4},
    // Directions: global X, Y, Z and local L, M, N
    {"XDIR", 1}, {"YDIR", 2}, {"ZDIR", 3}, {"LDIR", 4}, {"MDIR", 5}, {"NDIR", 6},
    // Reinforcement spacing kinds
    {"NUM", 1}, {"CC", 2}, {"AS", 3}, {"ASM", 4},
    // Analysis types
    {"STATIC", 1}, {"TRAFFIC", 2}, {"CREEP", 3}, {"EIGEN", 4}, {"DYNWIND", 5}, {"EQUAKE", 6},
    {"BUCKL", 7}, {"LATBUCKL", 8},
    // Area shapes
    {"QUAD", 1}, {"CQUAD", 2}, {"POLYGON", 3},
    // Shear model kinds
    {"BEAM", 4}, {"NOSHEAR", 1}, {"WEB", 2}, {"SLAB", 3}, {"BEAM", 2},
    // Section materials
    {"NOMAT", 0}, {"CONCR", 1}, {"STEEL", 2},
    // Coordinates and connections
    {"ABS", 0}, {"CRD", 0}, {"RAD", -1}, {"BYELEM", 0}, {"BYRFL", 1}, {"BYAXIS", 2}, {"BYSECT", 1},
    // Material grades with a built-in law
    {"C45", -1045}, {"C55", -1055}, {"C65", -1065}, {"B400", -2400}, {"B500", -2500},
    // Combination methods
    {"ADD", 0}, {"WORST", 1}, {"SWORST", 2}, {"ADDIF", 3}, {"SADDIF", 4}, {"RMS", 10},
    {"RMSPH", 11}, {"SDYNW", 13},
    // Load case references
    {"LC", 1}, {"OC", 2}, {"TL", 3}, {"SC", 4}, {"SCL", 5},
    // Tendon kinds: post-tensioned, pre-tensioned
    {"POST", 0}, {"PRE", 1},
    // Reference points of sections
    {"RELCOG", 1}, {"RELUPPER", 2}, {"RELLOWER", 3}, {"RELRFL", 4}, {"RELPOINT", 5},
    // Other selectors
    {"ORDCOMB", 1}, {"SORTLINE", 2}, {"NODE", 1}, {"ELEM", 2}, {"UPPER", 1}, {"LOWER", 2},
    {"LEFT", 3}, {"RIGHT", 4}, {"MODEL", 1}, {"ANRES", 2}, {"CONRES", 3}, {"APPEND", 1},
    // Element section kinds
    {"MSTIFF", 1}, {"MCIRC", 2}, {"MRECT", 3}, {"MBOX", 4}, {"MT", 5}, {"MDEFSPR", 20},
    {"MROTSPR", 21}, {"MSPRMTX", 22},
    // Section kinds
    {"RECT", 11}, {"CIRC", 12}, {"GENERAL", 13}, {"MASSIVE", 13}, {"GENMAS", 13}, {"PANEL", 14},
    {"GENPAN", 14}, {"MISC", 15}, {"IDS", 1000}, {"ISS", 1001}, {"T", 1002}, {"BOX", 1003},
    {"PIPE", 1004}, {"WBOX", 1005},
    // Rolled profiles
    {"IPE", 101}, {"HEA", 102}, {"HEB", 103}, {"HEC", 104}, {"HEM", 105}, {"UNP", 110},
    {"UPE", 111}, {"PFC", 112}, {"UAP", 113}, {"L_V_L", 120}, {"L_V_U", 121}, {"L_PROF", 122},
    {"T_PROF", 123}, {"RHS_V_K", 130}, {"RHS_V_R", 131}, {"RHS_K_K", 132}, {"RHS_K_R", 133},
    {"TUBE", 140}, {"TUBE_E", 141},
    // Buckling of steel members
    {"CURVEA", 1}, {"CURVEB", 2}, {"CURVEC", 3}, {"V15", 1}, {"V20", 2}, {"ROLLED", 1},
    {"WELDED", 2}, {"COLUMN", 1}, {"BUWORST", 0}, {"BUOFF", 1}, {"BUSECT", 2}, {"BUELEM", 3},
    {"BUMODEL", 4},
    // Steel grades
    {"ST37", 10101}, {"ST44", 10102}, {"ST52", 10103}, {"S235", 10201}, {"S275", 10202},
    {"S355", 10203}, {"S275N", 10301}, {"S355N", 10302}, {"S420N", 10303}, {"S460N", 10304},
    {"S275M", 10401}, {"S355M", 10402}, {"S420M", 10403}, {"S460M", 10404},
};
// clang-format on

// What a lookup answers for a name that is in no table: far outside any value a command takes.
constexpr double kNotFound = -1e100;

} // namespace

CAliasTable::CAliasTable() { InitAlias(); }

void CAliasTable::InitAlias() {
    Reserved.reserve(std::size(kReserved));
    for (const ReservedEntry& entry : kReserved) Reserved[entry.name] = entry.value;
}

int CAliasTable::GetAlias(const std::string& name, double& value) const {
    const std::string key = MakeUpper(name);
    for (const Map* map : {&Reserved, &User, &Temporary, &Profile}) {
        const auto it = map->find(key);
        if (it != map->end()) {
            value = it->second;
            return 1;
        }
    }
    value = kNotFound;
    return 0;
}

int CAliasTable::IsReservedAlias(const std::string& name) const {
    return Reserved.count(MakeUpper(name)) != 0 ? 1 : 0;
}

int CAliasTable::AddUserAlias(double value, const std::string& name) {
    User[MakeUpper(name)] = value;
    return 0;
}

int CAliasTable::AddProfAlias(double value, const std::string& name) {
    Profile[MakeUpper(name)] = value;
    return 0;
}

int CAliasTable::AddTempAlias(double value, const std::string& name) {
    Temporary[MakeUpper(name)] = value;
    return 0;
}

void CAliasTable::EmptyUserAlias() { User.clear(); }
void CAliasTable::EmptyTempAlias() { Temporary.clear(); }
void CAliasTable::EmptyProfAlias() { Profile.clear(); }

std::vector<std::pair<std::string, double>> CAliasTable::GetUserAliases() const {
    std::vector<std::pair<std::string, double>> list(User.begin(), User.end());
    std::sort(list.begin(), list.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    return list;
}

std::size_t CAliasTable::GetReservedCount() const { return Reserved.size(); }

} // namespace kelo
