#include "tests/e2e/driver/Script.h"

#include "tests/e2e/driver/StepFailure.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string Unescape(std::u16string_view text) {
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        switch (text[++i]) {
            case u'n':
                result += u'\n';
                break;
            case u'r':
                result += u'\r';
                break;
            case u't':
                result += u'\t';
                break;
            default:
                result += text[i];
        }
    }
    return result;
}

}  // namespace

std::vector<Action> ParseScript(std::string_view utf8) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (utf8.starts_with(kByteOrderMark)) {
        utf8.remove_prefix(kByteOrderMark.size());
    }
    const std::u16string script = text::FromUtf8(utf8);
    std::vector<Action> actions;
    std::size_t number = 0;
    for (std::u16string_view line : text::Split(script, u'\n')) {
        ++number;
        if (line.ends_with(u'\r')) {
            line.remove_suffix(1);
        }
        if (line.empty() || line.starts_with(u'#')) {
            continue;
        }
        Action action{number, {}, {}};
        for (const std::u16string_view word : text::Split(line, u'\t')) {
            action.arguments.push_back(Unescape(word));
        }
        action.verb = action.arguments.front();
        action.arguments.erase(action.arguments.begin());
        actions.push_back(std::move(action));
    }
    return actions;
}

const std::u16string& Argument(const Action& action, std::size_t index) {
    if (index >= action.arguments.size()) {
        throw StepFailure{u"script", action.verb + u" needs more arguments"};
    }
    return action.arguments[index];
}

std::int32_t Number(const Action& action, std::size_t index) {
    const auto number = text::ParseInt32(Argument(action, index));
    if (!number) {
        throw StepFailure{u"script", Argument(action, index) + u" is not a number"};
    }
    return *number;
}

std::u16string Describe(const Action& action) {
    std::u16string line = action.verb;
    for (const std::u16string& argument : action.arguments) {
        line += u' ' + argument;
    }
    return line;
}

}  // namespace tarvex
