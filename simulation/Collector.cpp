#include "simulation/Collector.h"

#include <algorithm>
#include <utility>

#include "branding/BrandMark.h"
#include "errors/RaisedError.h"
#include "launch/LaunchRun.h"
#include "launch/Resolution.h"
#include "simulation/LauncherFiles.h"
#include "simulation/LauncherRun.h"
#include "simulation/NoUi.h"
#include "simulation/RecordingFileSystem.h"
#include "simulation/RecordingRegistry.h"
#include "simulation/pc/DescribedPc.h"
#include "simulation/pc/Names.h"
#include "simulation/pc/RegFileText.h"
#include "text/Text.h"

namespace tarvex {

namespace {

using Names = std::vector<std::u16string>;

void AddOnce(Names& names, std::u16string_view name) {
    const bool known = std::any_of(names.begin(), names.end(), [name](const std::u16string& other) {
        return text::EqualsIgnoreCase(other, name);
    });
    if (!known) {
        names.emplace_back(name);
    }
}

/// Asks for Access with one entry as its key list.
void AskForAccess(const LaunchEnvironment& environment, std::u16string_view entry) {
    LaunchProperties properties;
    properties.accRegListString = entry;
    DiagnosticLog log;
    bool noted = false;
    LaunchRun run{environment, properties, 0, log, noted};
    try {
        ResolveAccess(run);
    } catch (const RaisedError&) {
        // Access is not there: an answer like any other.
    }
}

/// How a description of such a computer names what is asked for: it is asked of a computer of which
/// nothing is described.
class NamesInDescription : public PcListener {
public:
    explicit NamesInDescription(PcDescription description) : pc_(std::move(description)) {
        pc_.SetListener(this);
    }
    NamesInDescription(const NamesInDescription&) = delete;
    NamesInDescription& operator=(const NamesInDescription&) = delete;

    /// None for what is not there whatever the description says.
    Names OfFile(std::u16string_view path) {
        names_.clear();
        pc_.Files().FileExists(path);
        return std::exchange(names_, {});
    }

    Names OfText(const RecordingRegistry::Text& text) {
        names_.clear();
        pc_.RegistryView().ReadTextInView(text.view, text.root, text.key, text.valueName);
        return std::exchange(names_, {});
    }

    void OnAsked(Asked, std::u16string_view what, Presence answer) override {
        if (answer == Presence::NotDescribed) {
            names_.emplace_back(what);
        }
    }
    void OnOnlyInOtherView(std::u16string_view, std::u16string_view, bool) override {}

private:
    DescribedPc pc_;
    Names names_;
};

std::u16string_view LongName(std::int32_t root) {
    switch (root) {
        case kHKeyClassesRoot:
            return u"HKEY_CLASSES_ROOT";
        case kHKeyCurrentUser:
            return u"HKEY_CURRENT_USER";
        case kHKeyLocalMachine:
            return u"HKEY_LOCAL_MACHINE";
        default:
            return u"HKEY_USERS";
    }
}

void AddValue(std::vector<RegFileKey>& keys, const RecordingRegistry::Text& text,
              const TextCodec& codec) {
    std::u16string path(LongName(text.root));
    if (!text.key.empty()) {
        path.append(u"\\").append(text.key);
    }
    auto key = std::find_if(keys.begin(), keys.end(), [&path](const RegFileKey& other) {
        return text::EqualsIgnoreCase(other.path, path);
    });
    if (key == keys.end()) {
        key = keys.insert(keys.end(), {std::move(path), false, {}});
    }
    key->values.push_back(
        {text.valueName, kRegTypeText, ToUtf16Bytes(codec.FromAnsi(*text.bytes))});
}

/// What the launcher was answered.
struct Answers {
    std::vector<RegFileKey> keys;    ///< as the launcher names them
    std::vector<RegFileKey> keys64;  ///< of the 64-bit view
    Names files;
    Names missing;
};

Answers Sort(const RecordingRegistry& registry, const RecordingFileSystem& files, const ThisPc& pc,
             NamesInDescription& names) {
    Answers answers;
    for (const RecordingRegistry::Text& text : registry.Texts()) {
        if (text.bytes) {
            AddValue(text.view == Registry::View::kOwn ? answers.keys : answers.keys64, text,
                     pc.Codec());
            continue;
        }
        for (const std::u16string& name : names.OfText(text)) {
            AddOnce(answers.missing, name);
        }
    }
    for (const RecordingFileSystem::Answer& answer : files.Answers()) {
        for (const std::u16string& name : names.OfFile(answer.path)) {
            AddOnce(answer.exists ? answers.files : answers.missing, name);
        }
    }
    // A folder is no file; but below what is called missing nothing would be there.
    std::erase_if(answers.missing, [&answers](const std::u16string& missing) {
        return std::any_of(
            answers.files.begin(), answers.files.end(),
            [&missing](const std::u16string& file) { return IsAtOrBelow(file, missing); });
    });
    return answers;
}

}  // namespace

std::vector<CollectedFile> CollectPc(const ThisPc& pc, const BrandConstants& constants,
                                     std::u16string_view program, const TextCodec& settingsCodec,
                                     const std::vector<std::u16string>& accessEntries) {
    const ProgramInfo info = MakeProgramInfo(program, u"\"" + std::u16string(program) + u"\"");
    const RecordingRegistry registry(pc.RegistryView());
    const LauncherFiles launcherFiles(pc.Files(), info);
    const RecordingFileSystem files(launcherFiles);
    LauncherRun(constants, {registry, files, pc.Codec(), settingsCodec, info}).Run();
    NoUi ui;
    for (const std::u16string& entry : accessEntries) {
        AskForAccess({registry, files, pc.Codec(), settingsCodec, ui, info}, entry);
    }

    PcDescription description;
    description.program = program;
    description.is64Bit = registry.Has64BitView();
    description.windows = pc.Version();
    description.codePage = pc.CodePage();
    NamesInDescription names(description);
    const Answers answers = Sort(registry, files, pc, names);

    std::vector<CollectedFile> result(1);
    std::u16string lines =
        u"; Was " + info.exeName +
        u".exe auf diesem PC vorfindet, für 'tarvexcf simulate'. Nichts anderes steht hier.\r\n"
        u"[PC]\r\n";
    const auto add = [&lines](std::u16string_view name, std::u16string_view value) {
        lines.append(name).append(u" = ").append(value).append(u"\r\n");
    };
    const auto addRegistry = [&](std::u16string_view name, const std::vector<RegFileKey>& keys,
                                 std::u16string_view ending) {
        if (!keys.empty()) {
            result.push_back({info.exeName + std::u16string(ending), WriteRegFile(keys)});
            add(name, result.back().name);
        }
    };
    add(u"Startprogramm", program);
    add(u"Bit", description.is64Bit ? u"64" : u"32");
    add(u"Windows",
        text::Decimal(description.windows.major) + u"." + text::Decimal(description.windows.minor));
    add(u"Codepage", text::Decimal(description.codePage));
    addRegistry(description.is64Bit ? u"Registrierung32" : u"Registrierung", answers.keys,
                description.is64Bit ? u"-32.reg" : u".reg");
    addRegistry(u"Registrierung", answers.keys64, u"-64.reg");
    for (const std::u16string& file : answers.files) {
        add(u"Datei", file);
    }
    for (const std::u16string& missing : answers.missing) {
        add(u"Fehlt", missing);
    }
    result.front() = {info.exeName + u".pc", text::ToUtf8(lines)};
    return result;
}

}  // namespace tarvex
