#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

// Declares a field of a model record together with its public Get/Set pair. Records of the model
// are plain data with one accessor pair per field; generating the pairs keeps them uniform.
#define KELO_FIELD(Type, Name, Init)                                                               \
public:                                                                                            \
    const std::type_identity_t<Type>& Get##Name() const { return Name; }                           \
    void Set##Name(const std::type_identity_t<Type>& value) { Name = value; }                      \
                                                                                                   \
private:                                                                                           \
    Type Name = Init;

// A fixed array field reached by a 0-based index; an index outside the array reads 0 and writes
// nothing.
#define KELO_ARRAY_FIELD(Type, Name, Count)                                                        \
public:                                                                                            \
    Type Get##Name(int i) const {                                                                  \
        return i >= 0 && i < (Count) ? Name[static_cast<std::size_t>(i)] : Type{};                 \
    }                                                                                              \
    void Set##Name(int i, Type value) {                                                            \
        if (i >= 0 && i < (Count)) Name[static_cast<std::size_t>(i)] = value;                      \
    }                                                                                              \
    const std::array<Type, (Count)>& Get##Name##Array() const { return Name; }                     \
                                                                                                   \
private:                                                                                           \
    std::array<Type, (Count)> Name{};
