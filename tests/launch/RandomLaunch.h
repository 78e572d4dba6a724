#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/launch/LaunchFixture.h"

namespace tarvex {

/// Settings and a world of registry values and files, drawn from a seed: the same seed gives the
/// same launch on every system. Names are few, so that entries, values and files often meet.
class RandomLaunch : public LaunchWorld {
public:
    explicit RandomLaunch(std::uint32_t seed);

    /// A launch object with the drawn settings; also empties what the fakes recorded.
    cuTarvex Configure(bool testMode);

    /// The seed and the settings that differ from their defaults, for failure messages.
    std::string Describe() const;

    const cuTarvex& Settings() const { return settings_; }

    std::uint32_t Seed() const { return seed_; }

    /// The files that the launch asks for and that are there, as it asks for them.
    std::vector<std::u16string> FilesFound();

private:
    using Choices = std::vector<std::u16string_view>;

    bool Chance(std::uint32_t percent) { return random_() % 100 < percent; }
    std::u16string Pick(const Choices& choices);
    std::u16string PickOrNothing(const Choices& choices);
    std::u16string DrawEntry();
    std::u16string DrawList();
    void DrawSettings();
    void DrawRegistry();
    void DrawFiles();

    std::uint32_t seed_;
    std::mt19937 random_;
    cuTarvex settings_{environment};
};

}  // namespace tarvex
