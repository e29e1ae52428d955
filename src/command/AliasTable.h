#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kelo {

// The four name-to-value tables of the command language. Every field of a command may name a
// value instead of writing it: reserved names are the language's own words (design codes,
// switches, operators of IF), user names come from definition lines, temporary names are the
// variables of DO loops, and profile names come from the section library. Names are stored
// upper-case, so the language does not distinguish case.
class CAliasTable {
public:
    CAliasTable();

    // Looks the upper-cased name up in the reserved, user, temporary and profile tables, in that
    // order. 1 with the value when found; otherwise value = -1e100 and 0.
    int GetAlias(const std::string& name, double& value) const;
    int IsReservedAlias(const std::string& name) const;

    // Each stores the value under the upper-cased name, replacing an earlier value; answers 0.
    int AddUserAlias(double value, const std::string& name);
    int AddProfAlias(double value, const std::string& name);
    int AddTempAlias(double value, const std::string& name);

    void EmptyUserAlias();
    void EmptyTempAlias();
    void EmptyProfAlias();

    // The user names sorted by name, for listings and for writing a project back as commands.
    std::vector<std::pair<std::string, double>> GetUserAliases() const;
    std::size_t GetReservedCount() const;

private:
    void InitAlias();

    using Map = std::unordered_map<std::string, double>;
    Map Reserved;
    Map Profile;
    Map User;
    Map Temporary;
};

} // namespace kelo
