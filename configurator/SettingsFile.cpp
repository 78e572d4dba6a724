#include "configurator/SettingsFile.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "configurator/FieldTexts.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::vector<std::string_view> Lines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.push_back(line);
    }
    return lines;
}

std::u16string_view TrimBlanksAndTabs(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u" \t");
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

class Parser {
public:
    Parser(std::u16string_view name, const TextCodec& codec) : name_(name), codec_(codec) {}

    ParsedSettings Parse(std::string_view bytes) {
        if (bytes.starts_with(kByteOrderMark)) {
            bytes.remove_prefix(kByteOrderMark.size());
        }
        for (const std::string_view utf8 : Lines(bytes)) {
            ++line_;
            const std::u16string line = text::FromUtf8(utf8);
            if (text::ToUtf8(line) != utf8) {
                Report(line_, {}, u"Die Zeile ist kein gültiges UTF-8.");
                // Its continuation lines are not wrong by themselves.
                FinishValue();
                skipping_ = true;
                continue;
            }
            ReadLine(line);
        }
        FinishValue();
        // A value is judged when its last line has been read.
        std::stable_sort(result_.problems.begin(), result_.problems.end(),
                         [](const Problem& a, const Problem& b) { return a.line < b.line; });
        return std::move(result_);
    }

private:
    void ReadLine(std::u16string_view line) {
        if (line.starts_with(u' ') || line.starts_with(u'\t')) {
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
        if (field_ != nullptr) {
            value_ += text::kLineBreak;
            value_ += line.substr(1);
        } else if (!skipping_ && !TrimBlanksAndTabs(line).empty()) {
            Report(line_, {},
                   u"Die Zeile beginnt mit einem Leerzeichen oder Tabulator, setzt aber "
                   u"keinen Wert fort.");
        }
    }

    void StartValue(std::u16string_view line) {
        skipping_ = true;
        const std::size_t equals = line.find(u'=');
        if (equals == std::u16string_view::npos) {
            Report(line_, {},
                   u"'" + std::u16string(line) +
                       u"' ist weder 'Name = Wert' noch "
                       u"Abschnitt oder Kommentar.");
            return;
        }
        const std::u16string_view name = TrimBlanksAndTabs(line.substr(0, equals));
        const BrandField* field = FindBrandFieldByName(name);
        if (field == nullptr) {
            Report(line_, name, UnknownNameText(name));
            return;
        }
        if (const std::int32_t first = firstLines_[field->number]; first != 0) {
            Report(line_, field->name,
                   u"Der Name kommt doppelt vor, zuerst in Zeile " + text::Decimal(first) + u".");
            return;
        }
        firstLines_[field->number] = line_;
        skipping_ = false;
        field_ = field;
        value_ = line.substr(equals + 1);
        valueLine_ = line_;
    }

    void FinishValue() {
        skipping_ = false;
        if (field_ == nullptr) {
            return;
        }
        AcceptedValue accepted = AcceptValue(*field_, text::Trim(value_), codec_);
        if (accepted.problem.empty()) {
            result_.settings.Set(field_->number, accepted.value, valueLine_);
        } else {
            Report(valueLine_, field_->name, accepted.problem);
        }
        field_ = nullptr;
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
    bool skipping_ = false;  // continuation lines of something already reported
    std::map<std::int32_t, std::int32_t> firstLines_;
};

void WriteComment(std::u16string& out, std::u16string_view comment) {
    for (const std::u16string_view line : text::Split(comment, u'\n')) {
        out += u"; ";
        out += line;
        out += text::kLineBreak;
    }
}

void WriteField(std::u16string& out, const BrandField& field, std::u16string_view value) {
    // Empty entries of the long key lists would only be in the way.
    if (value.empty() && field.kind == FieldKind::KeyList && !field.name.ends_with(u"01")) {
        return;
    }
    WriteComment(out, FieldMeaning(field));
    if (value.empty()) {
        out += u';';
    }
    out += field.name;
    out += u" =";
    if (!value.empty()) {
        out += u' ';
        out += text::Replace(value, text::kLineBreak, u"\r\n ");
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
            WriteField(out, *FindBrandField(number), settings.Value(number));
        }
    }
    return text::ToUtf8(out);
}

}  // namespace tarvex
