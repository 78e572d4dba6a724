#include "commands/ManPage.h"

#include "commands/CommandHelp.h"
#include "commands/CommandTable.h"
#include "resources/Version.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// A text of which roff sees no command: backslashes and hyphens are its own, and a line that
/// begins with a dot or an apostrophe would be a request.
std::u16string Escaped(std::u16string_view text) {
    std::u16string escaped;
    bool lineStart = true;
    for (const char16_t unit : text) {
        if (lineStart && (unit == u'.' || unit == u'\'')) {
            escaped += u"\\&";
        }
        if (unit == u'\\') {
            escaped += u"\\e";
        } else if (unit == u'-') {
            escaped += u"\\-";
        } else {
            escaped += unit;
        }
        lineStart = unit == u'\n';
    }
    return escaped;
}

std::u16string CommandSection(const CommandInfo& info) {
    std::u16string page = u".SS " + Escaped(info.name) + u"\n.nf\n" + Escaped(UsageLine(info)) +
                          u"\n.fi\n.PP\n" + Escaped(info.summary) + u".\n";
    for (const OptionInfo& option : info.options) {
        page += u".TP\n.B " + Escaped(OptionForm(option)) + u"\n" + Escaped(option.help) + u"\n";
    }
    if (!info.details.empty()) {
        page += u".PP\n" + text::Replace(Escaped(info.details), u"\n\n", u"\n.PP\n");
    }
    return page;
}

}  // namespace

std::u16string ManPage() {
    std::u16string page =
        u".TH TARVEXCF 1 \"\" \"tarvexcf " TARVEX_VERSION_TEXT
        u"\" \"Tarvex\"\n"
        u".SH NAME\n"
        u"tarvexcf \\- konfiguriert Startprogramme für Access\\-Datenbanken\n"
        u".SH SYNOPSIS\n"
        u".B tarvexcf\n"
        u".I BEFEHL\n"
        u"[\\fIARGUMENTE\\fR]\n"
        u".SH BEFEHLE\n";
    for (const CommandInfo& info : CommandTable()) {
        page += CommandSection(info);
    }
    page += u".SH RÜCKGABE\n" + Escaped(ExitCodeHelp());
    return page;
}

}  // namespace tarvex
