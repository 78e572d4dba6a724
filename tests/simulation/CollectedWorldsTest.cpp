#include <gtest/gtest.h>

#include "branding/BrandMark.h"
#include "launch/RegistryKeyList.h"
#include "simulation/Collector.h"
#include "simulation/SimulationResult.h"
#include "simulation/pc/PcDescription.h"
#include "tests/launch/RandomSettings.h"
#include "tests/simulation/SimulationTexts.h"
#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeBrandConstants.h"
#include "tests/support/FakeFileStore.h"

namespace tarvex {
namespace {

/// A drawn launch and the computer of which everything is known.
struct DrawnPc {
    explicit DrawnPc(std::uint32_t seed) {
        RandomLaunch launch(seed);
        settings = SettingsOf(launch);
        const std::u16string folder = launch.program.folder;
        description.program =
            folder + (folder.ends_with(u'\\') ? u"" : u"\\") + launch.program.exeName + u".exe";
        description.is64Bit = seed % 3 != 0;
        description.files = launch.FilesFound();
        description.complete = {u"*"};
        description.registry = {{false, {}}, {true, {}}};
        std::size_t count = 0;
        for (const FakeRegistry::Key& key : launch.registry.Keys()) {
            RegFileKey written{std::u16string(HKeyName(key.root)) + u"\\" + key.path, false, {}};
            for (const FakeRegistry::Value& value : key.values) {
                written.values.push_back({value.name, value.isText ? kRegTypeText : kRegTypeNumber,
                                          ToUtf16Bytes(launch.codec.FromAnsi(value.bytes))});
            }
            description.registry[description.is64Bit ? count++ % 2 : 0].keys.push_back(written);
        }
    }

    FakeBrandConstants Constants() const {
        FakeBrandConstants::Values values;
        for (const auto& [field, value] : settings) {
            values[field] = value;
        }
        return FakeBrandConstants(values);
    }

    DrawnSettings settings;
    PcDescription description;
};

/// Lets a described computer pass for the real one.
class PcOfDescription : public ThisPc {
public:
    explicit PcOfDescription(const PcDescription& description) : pc_(description) {}

    const Registry& RegistryView() const override { return pc_.RegistryView(); }
    const FileSystem& Files() const override { return pc_.Files(); }
    const TextCodec& Codec() const override { return pc_.Codec(); }
    std::int32_t CodePage() const override { return pc_.Description().codePage; }
    WindowsVersion Version() const override { return pc_.Description().windows; }
    std::u16string FullPath(std::u16string_view path) const override {
        return std::u16string(path);
    }

private:
    DescribedPc pc_;
};

class CollectedWorldsTest : public testing::TestWithParam<std::uint32_t> {};

TEST_P(CollectedWorldsTest, DescriptionThatWasCollectedGivesTheSameStart) {
    constexpr std::uint32_t kCases = 100;
    int started = 0;
    for (std::uint32_t i = 0; i < kCases && !HasFailure(); ++i) {
        const DrawnPc drawn(GetParam() * kCases + i);
        SCOPED_TRACE("seed " + std::to_string(GetParam() * kCases + i));
        const FakeBrandConstants constants = drawn.Constants();
        PcFile all{u"alles.pc", DescribedPc(drawn.description), {}};
        const SimulationResult expected = SimulateStart(constants, all, u"alles.pc");
        EXPECT_TRUE(expected.undescribed.empty());

        PcOfDescription pc(drawn.description);
        FakeBinaryFiles files;
        FakeFileStore store{files};
        std::u16string first;
        for (const CollectedFile& file :
             CollectPc(pc, constants, drawn.description.program, pc.Codec(), {})) {
            files.AddFile(file.name, file.bytes);
            first = first.empty() ? file.name : first;
        }
        ReadPc read = ReadPcFile(store, first);
        ASSERT_EQ(ProblemLines(read.problems), Texts());
        const SimulationResult collected = SimulateStart(constants, *read.file, first);
        EXPECT_EQ(collected.outcome.text, expected.outcome.text);
        EXPECT_EQ(ResultText(collected.outcome), ResultText(expected.outcome));
        EXPECT_EQ(collected.outcome.commandLine, expected.outcome.commandLine);
        for (const Undescribed& undescribed : collected.undescribed) {
            ADD_FAILURE() << "not described: " << text::ToUtf8(undescribed.what);
        }
        started += expected.outcome.started ? 1 : 0;
    }
    EXPECT_GT(started, 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, CollectedWorldsTest, ::testing::Values(1U, 2U, 3U));

}  // namespace
}  // namespace tarvex
