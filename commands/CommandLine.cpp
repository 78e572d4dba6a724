#include "commands/CommandLine.h"

#include <getopt.h>

#include <algorithm>
#include <iterator>
#include <optional>

#include "commands/CommandHelp.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr int kFirstOption = 256;  // none of getopt's own results
constexpr std::string_view kHelp = "help";

CommandLine UsageError(std::u16string_view problem, std::u16string_view usage) {
    CommandLine result;
    result.usageError = u"Falscher Aufruf: " + std::u16string(problem) + u"\n" + u"Aufruf: " +
                        std::u16string(usage);
    return result;
}

CommandLine Ask(CommandKind command, std::vector<std::u16string> arguments) {
    CommandLine result;
    result.command = command;
    result.arguments = std::move(arguments);
    return result;
}

/// The arguments of one command, divided by the system's getopt_long. It is handed each argument
/// with a "?" for every character outside ASCII, so that places in it are places in the argument,
/// whatever characters that holds.
class CommandParser {
public:
    CommandParser(const CommandInfo& info, const std::vector<std::u16string>& arguments)
        : info_(info), arguments_(arguments) {
        for (const std::u16string& argument : arguments) {
            std::string& narrow = narrow_.emplace_back();
            for (const char16_t unit : argument) {
                narrow += unit > 0 && unit < 0x7f ? static_cast<char>(unit) : '?';
            }
        }
        for (std::string& narrow : narrow_) {
            pointers_.push_back(narrow.data());
        }
        pointers_.push_back(nullptr);
        for (std::size_t i = 0; i < info.options.size(); ++i) {
            const OptionInfo& each = info.options[i];
            options_.push_back({each.name.data(),
                                each.value.empty() ? no_argument : required_argument, nullptr,
                                kFirstOption + static_cast<int>(i)});
        }
        options_.push_back({kHelp.data(), no_argument, nullptr, 'h'});
        options_.push_back({});
    }

    CommandLine Parse() {
        optind = 0;  // begins anew
        // "-": arguments in their order, whatever the environment says; ":": no texts of its own.
        while (true) {
            const int found = getopt_long(static_cast<int>(narrow_.size()), pointers_.data(), "-:h",
                                          options_.data(), nullptr);
            if (found == -1) {
                break;
            }
            if (found == 'h') {
                return Ask(CommandKind::Help, {std::u16string(info_.name)});
            }
            std::u16string problem = Take(found);
            if (!problem.empty()) {
                return Wrong(problem);
            }
        }
        for (auto i = static_cast<std::size_t>(optind); i < arguments_.size(); ++i) {
            result_.arguments.push_back(arguments_[i]);
        }
        std::u16string problem = Arrange();
        return problem.empty() ? std::move(result_) : Wrong(problem);
    }

private:
    std::u16string Take(int found) {
        const auto last = static_cast<std::size_t>(optind - 1);
        if (found == 1) {
            result_.arguments.push_back(Original(optarg));
            return {};
        }
        if (found < kFirstOption) {
            const std::u16string& typed = arguments_[last];
            if (optopt >= kFirstOption) {
                // A missing value and one too many are told apart differently by each system.
                const bool takesNone = OptionOf(optopt).value.empty();
                return std::u16string(text::Left(typed, typed.find(u'='))) +
                       (takesNone ? u" nimmt keinen Wert." : u" braucht einen Wert.");
            }
            // Of several letters in one argument the place is still that of the argument before.
            const std::u16string letter{u'-', static_cast<char16_t>(optopt)};
            return u"unbekannt ist '" + (optopt != 0 ? letter : typed) + u"'.";
        }
        const OptionInfo& option = OptionOf(found);
        std::vector<std::u16string>& values = result_.options[option.option];
        if (option.value.empty()) {
            values = {u""};
            return {};
        }
        if (!values.empty() && !option.repeats) {
            return u"--" + text::FromUtf8(option.name) + u" ist mehrfach angegeben.";
        }
        values.push_back(Original(optarg));
        return {};
    }

    const OptionInfo& OptionOf(int result) const {
        return info_.options[static_cast<std::size_t>(result - kFirstOption)];
    }

    /// The text at a pointer into one of the narrow arguments.
    std::u16string Original(const char* place) const {
        for (std::size_t i = 0; i < narrow_.size(); ++i) {
            const char* const start = narrow_[i].data();
            if (std::less_equal<>()(start, place) &&
                std::less_equal<>()(place, start + narrow_[i].size())) {
                return arguments_[i].substr(static_cast<std::size_t>(place - start));
            }
        }
        return {};
    }

    /// Holds the arguments against what the command takes; returns what is wrong with them.
    std::u16string Arrange() {
        std::vector<std::u16string>& given = result_.arguments;
        std::size_t needed = 0;
        for (const ArgumentInfo& argument : info_.arguments) {
            needed += argument.optional ? 0U : 1U;
        }
        for (std::size_t i = 0; i < needed; ++i) {
            if (given.size() <= i || given[i].empty()) {
                return u"es fehlt " + std::u16string(info_.arguments[i].name) + u".";
            }
        }
        const bool repeats = !info_.arguments.empty() && info_.arguments.back().repeats;
        if (!repeats && given.size() > info_.arguments.size()) {
            return u"zu viel ist '" + given[info_.arguments.size()] + u"'.";
        }
        if (info_.kind == CommandKind::Brand && !result_.Has(Option::Settings) &&
            !result_.Has(Option::From)) {
            return u"es fehlt --settings DATEI.ini oder --from ALT.exe.";
        }
        if (result_.Has(Option::Drop) && !result_.Has(Option::From)) {
            return u"--drop gehört zu --from.";
        }
        result_.command = info_.kind;
        return TakeAssignments();
    }

    std::u16string TakeAssignments() {
        std::vector<std::u16string> typed = result_.Values(Option::Set);
        if (info_.kind == CommandKind::Set) {
            typed.assign(result_.arguments.begin() + 1, result_.arguments.end());
            result_.arguments.resize(1);
        }
        for (const std::u16string& each : typed) {
            const std::size_t equals = each.find(u'=');
            if (equals == std::u16string::npos) {
                // It may be a password: what was typed is not repeated.
                return u"eine Zuweisung hat nicht die Form NAME=WERT.";
            }
            result_.assignments.push_back(
                {std::u16string(text::Trim(text::Left(each, equals))), each.substr(equals + 1)});
        }
        return {};
    }

    CommandLine Wrong(std::u16string_view problem) const {
        return UsageError(problem, UsageLine(info_));
    }

    const CommandInfo& info_;
    const std::vector<std::u16string>& arguments_;
    std::vector<std::string> narrow_;
    std::vector<char*> pointers_;
    std::vector<option> options_;
    CommandLine result_;
};

}  // namespace

std::u16string_view CommandLine::Value(Option option) const {
    const auto found = options.find(option);
    return found != options.end() ? std::u16string_view(found->second.back())
                                  : std::u16string_view();
}

std::vector<std::u16string> CommandLine::Values(Option option) const {
    const auto found = options.find(option);
    return found != options.end() ? found->second : std::vector<std::u16string>();
}

CommandLine ParseCommandLine(const std::vector<std::u16string>& arguments) {
    constexpr std::u16string_view kUsage = u"tarvexcf BEFEHL [ARGUMENTE] (mehr mit --help)";
    if (arguments.empty()) {
        return UsageError(u"es fehlt der Befehl.", kUsage);
    }
    const std::u16string& first = arguments[0];
    if (first == u"--help" || first == u"-h") {
        return Ask(CommandKind::Help, {});
    }
    if (first == u"--version") {
        return Ask(CommandKind::Version, {});
    }
    const CommandInfo* info = FindCommand(first);
    if (info == nullptr) {
        return UsageError(u"unbekannter Befehl '" + first + u"'.", kUsage);
    }
    return CommandParser(*info, arguments).Parse();
}

}  // namespace tarvex
