#include "commands/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <utility>

#include "resources/Version.h"
#include "text/Text.h"

namespace tarvex {
namespace {

struct CommandInfo {
    CommandKind kind;
    std::u16string_view name;
    std::u16string_view arguments;
    std::u16string_view help;
};

constexpr CommandInfo kCommands[] = {
    {CommandKind::Brand, u"brand",
     u"VORLAGE.exe AUSGABE.exe --settings DATEI.ini [--set NAME=WERT]... [--force]",
     u"Macht aus dem unkonfigurierten Startprogramm VORLAGE.exe ein konfiguriertes.\n"
     u"\n"
     u"  --settings DATEI.ini  Einstellungsdatei (UTF-8, Zeilen der Form Name = Wert)\n"
     u"  --set NAME=WERT       setzt einen Wert anders als in der Datei; mehrfach möglich\n"
     u"  --force               ersetzt eine vorhandene AUSGABE.exe\n"
     u"\n"
     u"Mit NAME=- wird der Wert als eine Zeile von der Standardeingabe gelesen, damit ein\n"
     u"Kennwort nicht in der Befehlszeile steht.\n"},
    {CommandKind::Set, u"set", u"DATEI.exe NAME=WERT...",
     u"Ändert einzelne Werte in einem Startprogramm.\n"
     u"\n"
     u"Mit NAME=- wird der Wert als eine Zeile von der Standardeingabe gelesen.\n"},
    {CommandKind::Show, u"show", u"DATEI.exe [--reveal] [--json]",
     u"Zeigt alle Felder eines Startprogramms mit ihren Werten.\n"
     u"\n"
     u"  --reveal  zeigt auch Benutzernamen und Kennwörter\n"
     u"  --json    gibt JSON aus\n"},
    {CommandKind::Export, u"export", u"DATEI.exe AUSGABE.ini [--force]",
     u"Schreibt die Werte eines Startprogramms in eine Einstellungsdatei, aus der 'brand' wieder\n"
     u"dasselbe Startprogramm macht. Benutzername und Kennwörter stehen darin im Klartext.\n"
     u"\n"
     u"  --force  ersetzt eine vorhandene AUSGABE.ini\n"},
    {CommandKind::Check, u"check", u"DATEI.exe|DATEI.ini",
     u"Meldet, was nicht funktionieren wird oder vermutlich nicht so gemeint ist.\n"},
    {CommandKind::Fields, u"fields", u"[--json]",
     u"Listet alle Felder mit Nummer, Name, nutzbarer Länge in Zeichen und Bedeutung.\n"
     u"\n"
     u"  --json  gibt JSON aus\n"},
};

std::u16string Usage(const CommandInfo& info) {
    return u"tarvexcf " + std::u16string(info.name) + u" " + std::u16string(info.arguments);
}

std::u16string GeneralHelp() {
    std::u16string help = u"Konfiguriert Startprogramme für Access-Datenbanken.\n\nAufruf:\n";
    for (const CommandInfo& info : kCommands) {
        help += u"  " + Usage(info) + u"\n";
    }
    help +=
        u"  tarvexcf BEFEHL --help\n"
        u"  tarvexcf --version\n"
        u"\n"
        u"Rückgabe: 0 ausgeführt, 1 abgelehnt oder fehlgeschlagen, 2 falscher Aufruf.\n";
    return help;
}

CommandLine UsageError(std::u16string_view problem, std::u16string_view usage) {
    CommandLine result;
    result.usageError = u"Falscher Aufruf: " + std::u16string(problem) + u"\n" + u"Aufruf: " +
                        std::u16string(usage) + u"\n";
    return result;
}

CommandLine Answer(std::u16string text) {
    CommandLine result;
    result.answer = std::move(text);
    return result;
}

bool IsHelp(std::u16string_view argument) {
    return argument == u"--help" || argument == u"-h";
}

/// The arguments of one command. Everything is optional for CLI11, so that what is missing is said
/// here, in German.
class CommandParser {
public:
    CommandParser(const CommandInfo& info, std::vector<std::string> arguments)
        : info_(info), arguments_(std::move(arguments)) {}

    CommandLine Parse() {
        CLI::App app;
        app.allow_windows_style_options(false);
        app.set_help_flag();
        app.allow_extras();
        bool help = false;
        app.add_flag("-h,--help", help);
        Define(app);
        try {
            std::reverse(arguments_.begin(), arguments_.end());
            app.parse(arguments_);
        } catch (const CLI::ParseError& error) {
            return Wrong(DescribeError(error));
        }
        if (help) {
            return Answer(u"Aufruf: " + Usage(info_) + u"\n\n" + std::u16string(info_.help));
        }
        if (const std::vector<std::string> extras = app.remaining(); !extras.empty()) {
            return Wrong(u"unerwartet ist '" + text::FromUtf8(extras.front()) + u"'.");
        }
        return Collect();
    }

private:
    void Define(CLI::App& app) {
        if (Is(CommandKind::Show) || Is(CommandKind::Fields)) {
            app.add_flag("--json", json_);
        }
        if (Is(CommandKind::Show)) {
            app.add_flag("--reveal", reveal_);
        }
        if (Is(CommandKind::Brand) || Is(CommandKind::Export)) {
            app.add_flag("--force", force_);
        }
        if (Is(CommandKind::Brand)) {
            app.add_option("--settings", settings_);
            app.add_option("--set", assignments_)
                ->expected(1)
                ->allow_extra_args(false)
                ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        }
        if (!Is(CommandKind::Fields)) {
            app.add_option("input", input_);
        }
        if (Is(CommandKind::Brand) || Is(CommandKind::Export)) {
            app.add_option("output", output_);
        }
        if (Is(CommandKind::Set)) {
            app.add_option("assignments", assignments_);
        }
    }

    CommandLine Collect() const {
        CommandLine result;
        result.command = info_.kind;
        result.input = text::FromUtf8(input_);
        result.output = text::FromUtf8(output_);
        result.settings = text::FromUtf8(settings_);
        result.force = force_;
        result.reveal = reveal_;
        result.json = json_;
        if (!Is(CommandKind::Fields) && result.input.empty()) {
            return Wrong(u"es fehlt der Name der Datei.");
        }
        if ((Is(CommandKind::Brand) || Is(CommandKind::Export)) && result.output.empty()) {
            return Wrong(u"es fehlt der Name der Ausgabe.");
        }
        if (Is(CommandKind::Brand) && result.settings.empty()) {
            return Wrong(u"es fehlt --settings mit der Einstellungsdatei.");
        }
        if (Is(CommandKind::Set) && assignments_.empty()) {
            return Wrong(u"es fehlt NAME=WERT.");
        }
        for (const std::string& assignment : assignments_) {
            const std::u16string all = text::FromUtf8(assignment);
            const std::size_t equals = all.find(u'=');
            if (equals == std::u16string::npos) {
                return Wrong(u"'" + all + u"' hat nicht die Form NAME=WERT.");
            }
            result.assignments.push_back(
                {std::u16string(text::Trim(text::Left(all, equals))), all.substr(equals + 1)});
        }
        return result;
    }

    static std::u16string DescribeError(const CLI::ParseError& error) {
        // The texts of CLI11 are English, but they begin with the option and a colon.
        const std::string what = error.what();
        const std::string option = what.substr(0, what.find_first_of(": "));
        if (option.starts_with('-')) {
            return text::FromUtf8(option) + u" hat keinen oder keinen passenden Wert.";
        }
        return u"die Argumente passen nicht zum Befehl.";
    }

    CommandLine Wrong(std::u16string_view problem) const {
        return UsageError(problem, Usage(info_));
    }

    bool Is(CommandKind kind) const { return info_.kind == kind; }

    const CommandInfo& info_;
    std::vector<std::string> arguments_;
    std::string input_;
    std::string output_;
    std::string settings_;
    std::vector<std::string> assignments_;
    bool force_ = false;
    bool reveal_ = false;
    bool json_ = false;
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::u16string>& arguments) {
    if (arguments.empty()) {
        return UsageError(u"es fehlt der Befehl.", u"tarvexcf BEFEHL ... (mehr mit --help)");
    }
    if (IsHelp(arguments[0])) {
        return Answer(GeneralHelp());
    }
    if (arguments[0] == u"--version") {
        return Answer(u"tarvexcf " TARVEX_VERSION_TEXT u"\n");
    }
    const auto* info = std::find_if(
        std::begin(kCommands), std::end(kCommands),
        [&arguments](const CommandInfo& command) { return command.name == arguments[0]; });
    if (info == std::end(kCommands)) {
        return UsageError(u"unbekannter Befehl '" + arguments[0] + u"'.",
                          u"tarvexcf brand|set|show|export|check|fields ... (mehr mit --help)");
    }
    // The command's name is taken off here: as a subcommand of CLI11 it could not be told from a
    // file of the same name.
    std::vector<std::string> rest;
    std::transform(arguments.begin() + 1, arguments.end(), std::back_inserter(rest),
                   [](const std::u16string& argument) { return text::ToUtf8(argument); });
    return CommandParser(*info, std::move(rest)).Parse();
}

}  // namespace tarvex
