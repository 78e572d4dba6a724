#include "commands/CommandHelp.h"

#include <algorithm>
#include <vector>

#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::u16string_view kIndent = u"    ";

std::u16string ArgumentForm(const ArgumentInfo& argument) {
    std::u16string form(argument.name);
    if (argument.repeats) {
        form += u"...";
    }
    return argument.optional ? u"[" + form + u"]" : form;
}

std::u16string Padded(std::u16string text, std::size_t width) {
    text.resize(std::max(text.size(), width), u' ');
    return text;
}

}  // namespace

std::u16string OptionForm(const OptionInfo& option) {
    std::u16string form = u"--" + text::FromUtf8(option.name);
    if (!option.value.empty()) {
        form += u" " + std::u16string(option.value);
    }
    return form;
}

std::u16string UsageLine(const CommandInfo& info) {
    std::vector<std::u16string> pieces;
    for (const ArgumentInfo& argument : info.arguments) {
        pieces.push_back(ArgumentForm(argument));
    }
    for (const OptionInfo& option : info.options) {
        pieces.push_back(u"[" + OptionForm(option) + u"]" + (option.repeats ? u"..." : u""));
    }
    std::u16string usage;
    std::u16string line = u"tarvexcf " + std::u16string(info.name);
    for (const std::u16string& piece : pieces) {
        if (line.size() + 1 + piece.size() > kLineWidth) {
            usage += line + u"\n";
            line = kIndent;
            line += piece;
        } else {
            line += u" " + piece;
        }
    }
    return usage + line;
}

std::u16string_view ExitCodeHelp() {
    return u"Rückgabe: 0 ausgeführt, 1 abgelehnt oder fehlgeschlagen, 2 falscher Aufruf.\n";
}

std::u16string GeneralHelp() {
    std::u16string help =
        u"Konfiguriert Startprogramme für Access-Datenbanken.\n"
        u"\n"
        u"Aufruf: tarvexcf BEFEHL [ARGUMENTE]\n"
        u"\n";
    std::size_t width = 0;
    for (const CommandInfo& info : CommandTable()) {
        width = std::max(width, info.name.size());
    }
    for (const CommandInfo& info : CommandTable()) {
        help += u"  " + Padded(std::u16string(info.name), width) + u"  ";
        help += info.summary;
        help += u"\n";
    }
    help +=
        u"\n"
        u"'tarvexcf help BEFEHL' oder 'tarvexcf BEFEHL --help' zeigt mehr; '--version' die "
        u"Version.\n"
        u"Nach -- ist jedes Argument ein Name, auch wenn es mit - beginnt.\n";
    help += ExitCodeHelp();
    return help;
}

std::u16string CommandHelp(const CommandInfo& info) {
    std::u16string help = u"Aufruf: " + UsageLine(info) + u"\n\n";
    std::u16string summary(info.summary);
    summary[0] = static_cast<char16_t>(summary[0] - u'a' + u'A');
    help += summary + u".\n";
    if (!info.options.empty()) {
        help += u"\n";
        std::size_t width = 0;
        for (const OptionInfo& option : info.options) {
            width = std::max(width, OptionForm(option).size());
        }
        for (const OptionInfo& option : info.options) {
            help += u"  " + Padded(OptionForm(option), width) + u"  ";
            help += option.help;
            help += u"\n";
        }
    }
    if (!info.details.empty()) {
        help += u"\n";
        help += info.details;
    }
    return help;
}

}  // namespace tarvex
