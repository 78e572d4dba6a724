#include "simulation/pc/PcFile.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "configurator/FileTexts.h"
#include "configurator/TextFile.h"
#include "launch/PathHelpers.h"
#include "simulation/pc/FileList.h"
#include "simulation/pc/PcDescription.h"
#include "simulation/pc/RegistryNames.h"
#include "simulation/pc/WindowsPaths.h"
#include "text/CodePages.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kRegistry32 = u"Registrierung32";
constexpr std::u16string_view kLists = u"Dateien";
constexpr std::u16string_view kProtocol = u"Protokoll";

/// The Windows versions there are.
constexpr WindowsVersion kWindowsVersions[] = {{5, 0}, {5, 1}, {5, 2}, {6, 0},
                                               {6, 1}, {6, 2}, {6, 3}, {10, 0}};

std::u16string VersionText(WindowsVersion version) {
    return text::Decimal(version.major) + u"." + text::Decimal(version.minor);
}

std::u16string Quoted(std::u16string_view value) {
    return u"'" + std::u16string(value) + u"'";
}

/// Why a value cannot be the full path of a file; empty when it can.
std::u16string FilePathProblem(std::u16string_view value) {
    if (!IsFullWindowsPath(value) || !FullWindowsPath(value, {}) || value.ends_with(u'\\') ||
        value.ends_with(u'/')) {
        return Quoted(value) + u" ist kein vollständiger Pfad einer Datei.";
    }
    return {};
}

class PcFileReader {
public:
    PcFileReader(FileStore& files, std::u16string_view path) : files_(files), path_(path) {}

    ReadPc Read() {
        const std::optional<std::string> bytes = ReadBytes(path_, path_, 0, {});
        if (bytes) {
            ReadText(*bytes);
        }
        ReadPc result;
        result.problems = std::move(problems_);
        if (result.problems.empty()) {
            result.file.emplace(PcFile{std::u16string(FileNamePart(FileNamePart(path_), true)),
                                       DescribedPc(std::move(pc_)), std::move(expectation_)});
        }
        return result;
    }

private:
    using Handler = void (PcFileReader::*)(std::u16string_view value);

    enum class Times { Once, Often };
    enum class Kind { Path, Other };

    struct Field {
        std::u16string_view name;
        Times times;
        Kind kind;
        Handler handler;
        bool mayBeEmpty = false;
    };

    struct Section {
        std::u16string_view name;
        std::vector<Field> fields;
    };

    /// A file that the description names.
    struct Reference {
        std::u16string_view field;
        std::int32_t line;
        std::u16string name;
    };

    static const std::vector<Section>& Sections() {
        using Reader = PcFileReader;
        using enum Times;
        using enum Kind;
        static const std::vector<Section> sections = {
            {u"PC",
             {{u"Startprogramm", Once, Path, &Reader::SetProgram},
              {u"Bit", Once, Other, &Reader::SetBit},
              {u"Windows", Once, Other, &Reader::SetWindows},
              {u"Codepage", Once, Other, &Reader::SetCodePage},
              {u"Registrierung", Often, Path, &Reader::AddReference},
              {kRegistry32, Often, Path, &Reader::AddReference},
              {kLists, Often, Path, &Reader::AddReference},
              {u"Datei", Often, Path, &Reader::AddFile},
              {u"Fehlt", Often, Path, &Reader::AddMissing},
              {u"Vollständig", Often, Path, &Reader::AddComplete},
              {u"Arbeitsordner", Once, Path, &Reader::SetCurrentFolder},
              {u"Schalter", Once, Other, &Reader::SetSwitches, true}}},
            {u"Erwartet",
             {{u"Ergebnis", Once, Other, &Reader::SetResult},
              {u"Access", Once, Path, &Reader::SetAccess, true},
              {u"Datenbank", Once, Path, &Reader::SetDatabase, true},
              {u"Befehlszeile", Once, Other, &Reader::SetCommandLine, true},
              {kProtocol, Once, Path, &Reader::AddReference}}}};
        return sections;
    }

    void ReadText(std::string_view bytes) {
        const DecodedText decoded = DecodeText(bytes);
        if (decoded.badLine != 0 &&
            text::FindIgnoreCase(decoded.text, u"[PC]") < decoded.text.size()) {
            line_ = decoded.badLine;
            Report(decoded.problem);
            return;
        }
        for (const std::u16string_view line : TextLines(decoded.text)) {
            ++line_;
            ReadLine(line);
        }
        const auto pc = firstLines_.find(u"[PC]");
        if (pc == firstLines_.end()) {
            // Whatever else the lines are.
            problems_ = {
                {path_, 0, {}, u"Die Datei beschreibt keinen PC: Der Abschnitt [PC] fehlt."}};
            return;
        }
        if (!firstLines_.contains(u"[PC]Startprogramm")) {
            problems_.push_back({path_, pc->second, u"Startprogramm", u"Die Angabe fehlt."});
        }
        const auto expected = firstLines_.find(u"[Erwartet]");
        if (expected != firstLines_.end() && !expectation_.given) {
            problems_.push_back(
                {path_, expected->second, {}, u"Der Abschnitt [Erwartet] ist leer."});
        }
        ReadReferences();
    }

    void ReadLine(std::u16string_view line) {
        if (TrimBlanksAndTabs(line).empty() || line[0] == u';' || line[0] == u'#') {
            return;
        }
        if (line.find(u'\0') != std::u16string_view::npos) {
            Report(u"Die Zeile enthält das Zeichen mit dem Code 0.");
        } else if (line[0] == u' ' || line[0] == u'\t') {
            Report(u"Die Zeile ist eingerückt; hier hat kein Wert mehr als eine Zeile.");
        } else if (line[0] == u'[') {
            StartSection(TrimBlanksAndTabs(line));
        } else {
            ReadValue(line);
        }
    }

    void StartSection(std::u16string_view line) {
        section_ = nullptr;
        skipping_ = true;
        if (!line.ends_with(u']')) {
            Report(u"Die Abschnittszeile endet nicht mit ']'.");
            return;
        }
        const std::u16string_view name = line.substr(1, line.size() - 2);
        const auto& sections = Sections();
        const auto found = std::find_if(
            sections.begin(), sections.end(),
            [name](const auto& other) { return text::EqualsIgnoreCase(other.name, name); });
        if (found == sections.end()) {
            Report(u"Den Abschnitt " + std::u16string(line) +
                   u" gibt es hier nicht; es gibt [PC] und [Erwartet].");
            return;
        }
        if (IsFirst(u"[" + std::u16string(found->name) + u"]",
                    u"Der Abschnitt kommt doppelt vor, zuerst in Zeile ")) {
            section_ = &*found;
            skipping_ = false;
        }
    }

    void ReadValue(std::u16string_view line) {
        const std::size_t equals = line.find(u'=');
        if (equals == std::u16string_view::npos) {
            Report(u"Die Zeile ist weder 'Name = Wert' noch Abschnitt oder Kommentar.");
            return;
        }
        if (section_ == nullptr) {
            if (!skipping_) {
                Report(u"Vor der Zeile fehlt der Abschnitt, [PC] oder [Erwartet].");
            }
            return;
        }
        const std::u16string_view name = TrimBlanksAndTabs(line.substr(0, equals));
        const std::u16string_view value = TrimBlanksAndTabs(line.substr(equals + 1));
        field_ = FindField(*section_, name);
        if (field_ == nullptr) {
            ReportUnknown(name);
            return;
        }
        if (section_ == &Sections().back()) {
            expectation_.given = true;
        }
        const bool isFirst =
            field_->times == Times::Often ||
            IsFirst(u"[" + std::u16string(section_->name) + u"]" + std::u16string(field_->name),
                    u"Der Name kommt doppelt vor, zuerst in Zeile ");
        if (!isFirst) {
            // Told already.
        } else if (value.empty() && !field_->mayBeEmpty) {
            Report(u"Der Wert fehlt.");
        } else if (field_->kind == Kind::Path && HasComment(value)) {
            Report(u"Nach dem Wert steht ein Kommentar; Kommentare haben eigene Zeilen.");
        } else {
            (this->*field_->handler)(value);
        }
        field_ = nullptr;
    }

    static const Field* FindField(const Section& section, std::u16string_view name) {
        const auto found = std::find_if(
            section.fields.begin(), section.fields.end(),
            [name](const Field& field) { return text::EqualsIgnoreCase(field.name, name); });
        return found == section.fields.end() ? nullptr : &*found;
    }

    static bool HasComment(std::u16string_view value) {
        return value.find(u" ;") != std::u16string_view::npos ||
               value.find(u"\t;") != std::u16string_view::npos;
    }

    void ReportUnknown(std::u16string_view name) {
        for (const Section& other : Sections()) {
            if (FindField(other, name) != nullptr) {
                Report(Quoted(name) + u" gehört in den Abschnitt [" + std::u16string(other.name) +
                       u"].");
                return;
            }
        }
        std::vector<std::u16string_view> known;
        for (const Field& field : section_->fields) {
            known.push_back(field.name);
        }
        Report(UnknownNameText(name, known));
    }

    /// Keeps the line of what may come once; otherwise tells where it came first.
    bool IsFirst(const std::u16string& what, std::u16string_view problem) {
        const auto [entry, isNew] = firstLines_.emplace(what, line_);
        if (!isNew) {
            Report(std::u16string(problem) + text::Decimal(entry->second) + u".");
        }
        return isNew;
    }

    void SetProgram(std::u16string_view value) {
        if (ReportIfAny(FilePathProblem(value))) {
            pc_.program = value;
        }
    }

    void SetBit(std::u16string_view value) {
        if (value != u"32" && value != u"64") {
            Report(u"Erlaubt ist 32 oder 64, nicht " + Quoted(value) + u".");
        }
        pc_.is64Bit = value == u"64";
    }

    void SetWindows(std::u16string_view value) {
        const auto* const found =
            std::find_if(std::begin(kWindowsVersions), std::end(kWindowsVersions),
                         [value](WindowsVersion version) { return VersionText(version) == value; });
        if (found != std::end(kWindowsVersions)) {
            pc_.windows = *found;
            return;
        }
        std::u16string known;
        for (const WindowsVersion version : kWindowsVersions) {
            text::AppendWithSeparator(known, VersionText(version), u", ");
        }
        Report(u"Erlaubt ist eine von " + known + u" (auch Windows 11), nicht " + Quoted(value) +
               u".");
    }

    void SetCodePage(std::u16string_view value) {
        const std::optional<std::int32_t> page = text::ParseInt32(value);
        if (!text::IsDigits(value) || !page || MakeCodePage(*page) == nullptr) {
            Report(u"Erlaubt sind 874 und 1250 bis 1258, nicht " + Quoted(value) + u".");
            return;
        }
        pc_.codePage = *page;
    }

    void AddReference(std::u16string_view value) {
        references_.push_back({field_->name, line_, std::u16string(value)});
    }

    void AddFile(std::u16string_view value) {
        if (ReportIfAny(DescribedPathProblem(value))) {
            pc_.files.emplace_back(value);
        }
    }

    void AddMissing(std::u16string_view value) {
        const bool isValue =
            IsRegistryName(value) && value.find(u'\\') != std::u16string_view::npos;
        if (isValue || ReportIfAny(DescribedPathProblem(value))) {
            pc_.missing.emplace_back(value);
        }
    }

    void AddComplete(std::u16string_view value) {
        if (value == u"*" || IsRegistryName(value) || ReportIfAny(DescribedPathProblem(value))) {
            pc_.complete.emplace_back(value);
        }
    }

    void SetCurrentFolder(std::u16string_view value) {
        const std::optional<std::u16string> full = FullWindowsPath(value, {});
        if (!IsFullWindowsPath(value) || !full) {
            Report(Quoted(value) + u" ist kein vollständiger Pfad eines Ordners.");
            return;
        }
        pc_.currentFolder = *full;
    }

    void SetSwitches(std::u16string_view value) { pc_.switches = value; }

    void SetResult(std::u16string_view value) {
        constexpr std::u16string_view kError = u"Fehler ";
        for (const std::u16string_view known : {u"Start", u"unbestimmt"}) {
            if (text::EqualsIgnoreCase(value, known)) {
                expectation_.result = known;
                return;
            }
        }
        const std::u16string_view number = TrimBlanksAndTabs(text::Drop(value, kError.size()));
        if (!text::StartsWithIgnoreCase(value, kError) || !text::IsDigits(number) ||
            !text::ParseInt32(number)) {
            Report(u"Erlaubt sind 'Start', 'Fehler' mit einer Nummer und 'unbestimmt', nicht " +
                   Quoted(value) + u".");
            return;
        }
        expectation_.result = kError;
        expectation_.result->append(text::Decimal(*text::ParseInt32(number)));
    }

    void SetAccess(std::u16string_view value) { expectation_.access = value; }
    void SetDatabase(std::u16string_view value) { expectation_.database = value; }
    void SetCommandLine(std::u16string_view value) { expectation_.commandLine = value; }

    /// When everything else is known.
    void ReadReferences() {
        const std::unique_ptr<TextCodec> codec = MakeCodePage(pc_.codePage);
        for (const Reference& reference : references_) {
            const std::u16string path = BesideTheDescription(reference.name);
            const std::optional<std::string> bytes =
                ReadBytes(path, reference.name, reference.line, reference.field);
            if (!bytes) {
                continue;
            }
            if (reference.field == kLists) {
                ParsedFileList list = ParseFileList(*bytes, path);
                Append(problems_, std::move(list.problems));
                std::move(list.paths.begin(), list.paths.end(), std::back_inserter(pc_.files));
            } else if (reference.field == kProtocol) {
                expectation_.protocol = ProtocolText(*bytes, *codec);
            } else {
                ParsedRegFile parsed = ParseRegFile(*bytes, path, *codec);
                Append(problems_, std::move(parsed.problems));
                pc_.registry.push_back({reference.field == kRegistry32, std::move(parsed.keys)});
            }
        }
    }

    static std::u16string ProtocolText(std::string_view bytes, const TextCodec& codec) {
        const std::u16string saved = DecodeSavedText(bytes, codec);
        std::u16string result;
        for (const std::u16string_view line : TextLines(saved)) {
            result.append(line).append(text::kLineBreak);
        }
        return result;
    }

    /// A path of the computer that reads the description, which may be of another system.
    std::u16string BesideTheDescription(std::u16string_view name) const {
        std::u16string result(name);
        std::replace(result.begin(), result.end(), u'\\', u'/');
        if (result.starts_with(u'/') || IsFullWindowsPath(result)) {
            return result;
        }
        const std::size_t nameSize = FileNamePart(FileNamePart(path_), true).size();
        return path_.substr(0, path_.size() - nameSize) + result;
    }

    std::optional<std::string> ReadBytes(std::u16string_view path, std::u16string_view name,
                                         std::int32_t line, std::u16string_view field) {
        try {
            return files_.ReadAll(path);
        } catch (...) {
            std::u16string text = CaughtText();
            if (line != 0) {
                text = std::u16string(name) + u": " + text;
            }
            problems_.push_back({path_, line, std::u16string(field), std::move(text)});
            return std::nullopt;
        }
    }

    /// True when there is no problem.
    bool ReportIfAny(std::u16string problem) {
        if (problem.empty()) {
            return true;
        }
        Report(std::move(problem));
        return false;
    }

    void Report(std::u16string text) {
        problems_.push_back({path_, line_,
                             field_ != nullptr ? std::u16string(field_->name) : std::u16string(),
                             std::move(text)});
    }

    FileStore& files_;
    std::u16string path_;
    PcDescription pc_;
    Expectation expectation_;
    Problems problems_;
    std::int32_t line_ = 0;
    const Section* section_ = nullptr;
    bool skipping_ = false;         // after a section line that is wrong itself
    const Field* field_ = nullptr;  // whose value is being read
    std::map<std::u16string, std::int32_t> firstLines_;  // "[PC]", "[PC]Bit"
    std::vector<Reference> references_;
};

}  // namespace

ReadPc ReadPcFile(FileStore& files, std::u16string_view path) {
    return PcFileReader(files, path).Read();
}

}  // namespace tarvex
