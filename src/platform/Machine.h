#pragma once

#include <array>
#include <cstdint>

namespace kelo {

// Facts of the machine that results depend on: the memory figures size the solver's blocks and
// the result store's budget, the local time stamps logs and headers. Tests install fixed values.
class Machine {
public:
    virtual ~Machine() = default;
    virtual std::uint64_t PhysicalMemory() const = 0;
    virtual std::uint64_t AvailablePhysicalMemory() const = 0;
    virtual std::uint64_t VirtualMemory() const = 0;
    // Year, month, day, hour, minute, second.
    virtual std::array<int, 6> LocalTime() const = 0;
};

// The machine in force: the real one unless a test installed another.
const Machine& GetMachine();
// Installs `m` (not owned) or, with null, the real machine again.
void SetMachine(const Machine* m);

// A machine with fixed figures for reproducible outputs.
class FixedMachine final : public Machine {
public:
    FixedMachine(std::uint64_t memory, std::array<int, 6> time) : m_memory(memory), m_time(time) {}
    std::uint64_t PhysicalMemory() const override { return m_memory; }
    std::uint64_t AvailablePhysicalMemory() const override { return m_memory; }
    std::uint64_t VirtualMemory() const override { return m_memory; }
    std::array<int, 6> LocalTime() const override { return m_time; }

private:
    std::uint64_t m_memory;
    std::array<int, 6> m_time;
};

} // namespace kelo
