#include "configurator/SettingsFile.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "configurator/FieldTexts.h"
#include "configurator/TextFile.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// After the blanks of an indented line: the rest is literal.
constexpr char16_t kLiteralBar = u'|';

/// So many lines without meaning, for each known name as many more, make something else of a file.
constexpr std::size_t kStrangeLines = 4;
constexpr std::size_t kStrangeLinesPerName = 8;

bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

/// The field that a line "Name = Value" sets; null when it is none or its name is unknown.
const BrandField* FieldOfLine(std::u16string_view line) {
    const std::size_t equals = line.find(u'=');
    return equals == std::u16string_view::npos
               ? nullptr
               : FindFieldByName(TrimBlanksAndTabs(line.substr(0, equals)));
}

bool HoldsLines(const BrandField& field) {
    return field.number == kFieldErrBoxText || field.number == kFieldErrDebugText;
}

/// A line of the file; without text when its bytes are no UTF-8.
using Line = std::optional<std::u16string>;

std::vector<Line> Utf16Lines(std::string_view bytes, bool highFirst) {
    const std::u16string text = FromUtf16(bytes.substr(kUtf16Mark.size()), highFirst);
    std::vector<Line> lines;
    for (const std::u16string_view line : TextLines(text)) {
        lines.emplace_back(line);
    }
    return lines;
}

std::vector<Line> Utf8Lines(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    std::vector<Line> lines;
    for (const std::string_view utf8 : TextLines(bytes)) {
        std::u16string line = text::FromUtf8(utf8);
        lines.push_back(text::ToUtf8(line) == utf8 ? Line(std::move(line)) : std::nullopt);
    }
    return lines;
}

std::vector<Line> ReadLines(std::string_view bytes) {
    const bool highFirst = bytes.starts_with(kUtf16MarkHighFirst);
    return highFirst || bytes.starts_with(kUtf16Mark) ? Utf16Lines(bytes, highFirst)
                                                      : Utf8Lines(bytes);
}

class Parser {
public:
    Parser(std::u16string_view name, const TextCodec& codec) : name_(name), codec_(codec) {}

    ParsedSettings Parse(std::string_view bytes) {
        if (bytes.starts_with("MZ")) {
            return OtherFile();  // a program, the usual mistake
        }
        for (const Line& line : ReadLines(bytes)) {
            ++line_;
            if (line) {
                ReadLine(*line);
            } else {
                FinishValue();
                ReportStrange({}, u"Die Zeile ist kein gültiges UTF-8.");
            }
        }
        FinishValue();
        if (strangeLines_ >= kStrangeLines + kStrangeLinesPerName * firstLines_.size()) {
            return OtherFile();
        }
        // A value is judged when its last line has been read.
        std::stable_sort(result_.problems.begin(), result_.problems.end(),
                         [](const Problem& a, const Problem& b) { return a.line < b.line; });
        return std::move(result_);
    }

private:
    ParsedSettings OtherFile() const {
        ParsedSettings nothing;
        nothing.problems.push_back({name_,
                                    0,
                                    {},
                                    u"Die Datei ist keine Einstellungsdatei: Kaum eine Zeile hat "
                                    u"die Form 'Name = Wert' mit einem bekannten Namen."});
        return nothing;
    }

    void ReadLine(std::u16string_view line) {
        if (TrimBlanksAndTabs(line).empty() && !line.empty()) {
            ++blankLines_;
            return;
        }
        if (!line.empty() && IsBlank(line[0])) {
            Continue(line);
            return;
        }
        FinishValue();
        if (line.empty() || line[0] == u';' || line[0] == u'#') {
            return;
        }
        if (line[0] == u'[') {
            if (!TrimBlanksAndTabs(line).ends_with(u']')) {
                Report(line_, {}, u"Die Abschnittszeile endet nicht mit ']'.");
            }
            return;
        }
        StartValue(line);
    }

    void Continue(std::u16string_view line) {
        const std::u16string_view text = TrimBlanksAndTabs(line);
        const BrandField* ownField = FieldOfLine(text);
        if (field_ == nullptr && !skipping_) {
            Report(line_, {},
                   u"Die Zeile beginnt mit einem Leerzeichen oder Tabulator, setzt aber "
                   u"keinen Wert fort.");
        } else if (ownField != nullptr) {
            Report(line_, ownField->name,
                   u"Die Zeile ist eingerückt und gehörte damit zum Wert darüber, liest sich aber "
                   u"wie ein eigenes Feld. Nicht einrücken, oder, wenn sie Text ist, mit '|' "
                   u"beginnen.");
        } else if (field_ != nullptr) {
            ContinueValue(line);
        }
        blankLines_ = 0;
    }

    void ContinueValue(std::u16string_view line) {
        if (!HoldsLines(*field_) && !isContinued_) {
            isContinued_ = true;
            result_.warnings.push_back({u"continued-value",
                                        {name_, line_, std::u16string(field_->name),
                                         u"Die Zeile ist eingerückt und setzt den Wert darüber "
                                         u"fort; er enthält damit einen "
                                         u"Zeilenwechsel."}});
        }
        for (; blankLines_ > 0; --blankLines_) {
            value_ += text::kLineBreak;
        }
        const std::u16string_view text = TrimBlanksAndTabs(line);
        const bool isLiteral = text.starts_with(kLiteralBar);
        value_.append(text::kLineBreak)
            .append(line.substr(isLiteral ? line.find(kLiteralBar) + 1 : 1));
    }

    void StartValue(std::u16string_view line) {
        const std::size_t equals = line.find(u'=');
        if (equals == std::u16string_view::npos) {
            ReportStrange({}, u"Die Zeile ist weder 'Name = Wert' noch Abschnitt oder Kommentar.");
            return;
        }
        const std::u16string_view name = TrimBlanksAndTabs(line.substr(0, equals));
        const BrandField* field = FieldOfLine(line);
        if (field == nullptr) {
            ReportStrange(name, UnknownNameText(name));
            return;
        }
        if (const std::int32_t first = firstLines_[field->number]; first != 0) {
            skipping_ = true;
            Report(line_, field->name,
                   u"Der Name kommt doppelt vor, zuerst in Zeile " + text::Decimal(first) + u".");
            return;
        }
        firstLines_[field->number] = line_;
        field_ = field;
        value_ = line.substr(equals + 1);
        valueLine_ = line_;
    }

    void FinishValue() {
        skipping_ = false;
        isContinued_ = false;
        blankLines_ = 0;
        if (field_ == nullptr) {
            return;
        }
        AcceptedValue accepted = AcceptValue(*field_, TrimBlanksAndTabs(value_), codec_);
        if (accepted.problem.empty()) {
            result_.settings.Set(field_->number, accepted.value, valueLine_);
        } else {
            Report(valueLine_, field_->name, accepted.problem);
        }
        field_ = nullptr;
    }

    /// About a line that no settings file has. Its continuation lines are not wrong by themselves.
    void ReportStrange(std::u16string_view field, std::u16string problem) {
        Report(line_, field, std::move(problem));
        ++strangeLines_;
        skipping_ = true;
    }

    void Report(std::int32_t line, std::u16string_view field, std::u16string problem) {
        result_.problems.push_back({name_, line, std::u16string(field), std::move(problem)});
    }

    std::u16string name_;
    const TextCodec& codec_;
    ParsedSettings result_;
    std::int32_t line_ = 0;
    const BrandField* field_ = nullptr;  // whose value is being read
    std::u16string value_;
    std::int32_t valueLine_ = 0;
    std::int32_t blankLines_ = 0;  // they count when a continuation line follows
    bool isContinued_ = false;
    bool skipping_ = false;  // continuation lines of something already reported
    std::map<std::int32_t, std::int32_t> firstLines_;
    std::size_t strangeLines_ = 0;
};

void WriteComment(std::u16string& out, std::u16string_view comment) {
    for (const std::u16string_view line : text::Split(comment, u'\n')) {
        out += u"; ";
        out += line;
        out += text::kLineBreak;
    }
}

void WriteContinuation(std::u16string& out, std::u16string_view line) {
    const std::u16string_view text = TrimBlanksAndTabs(line);
    const bool needsBar =
        text.empty() || text.starts_with(kLiteralBar) || FieldOfLine(text) != nullptr;
    out.append(text::kLineBreak).append(needsBar ? u" |" : u" ").append(line);
}

void WriteField(std::u16string& out, const BrandField& field, const Settings& settings) {
    const std::u16string_view value = settings.Value(field.number);
    // Empty entries of the long key lists would only be in the way.
    if (value.empty() && field.kind == FieldKind::KeyList && !field.name.ends_with(u"01")) {
        return;
    }
    WriteComment(out, FieldMeaning(field));
    // Of the program's texts an empty one is another than none.
    if (value.empty() && !(IsProgramField(field.number) && settings.Has(field.number))) {
        out += u';';
    }
    out += field.name;
    out += u" =";
    if (!value.empty()) {
        const std::size_t firstLine = value.find(text::kLineBreak);
        out.append(u" ").append(value.substr(0, firstLine));
        for (std::size_t at = firstLine; at != std::u16string_view::npos;) {
            at += text::kLineBreak.size();
            const std::size_t end = value.find(text::kLineBreak, at);
            WriteContinuation(out,
                              value.substr(at, end == std::u16string_view::npos ? end : end - at));
            at = end;
        }
    }
    out += text::kLineBreak;
}

}  // namespace

ParsedSettings ParseSettings(std::string_view bytes, std::u16string_view name,
                             const TextCodec& codec) {
    return Parser(name, codec).Parse(bytes);
}

std::string WriteSettings(const Settings& settings, std::u16string_view title) {
    std::u16string out;
    WriteComment(out, title);
    for (const FieldSection& section : FieldSections()) {
        out += text::kLineBreak;
        out += u"[" + std::u16string(section.title) + u"]";
        out += text::kLineBreak;
        WriteComment(out, section.comment);
        for (const std::int32_t number : section.fields) {
            WriteField(out, *FindField(number), settings);
        }
    }
    return text::ToUtf8(out);
}

}  // namespace tarvex
