#include "commands/verbs/Verbs.h"
#include "configurator/AccessPresets.h"
#include "text/Text.h"

namespace tarvex {

int Presets(CommandContext& context, const CommandLine&) {
    std::u16string out =
        u"; Bekannte Orte von Access, der neueste zuerst: Zeilen für den Abschnitt [Access] einer\n"
        u"; Einstellungsdatei. Was nicht gebraucht wird, kann weg; die Nummern dürfen Lücken "
        u"haben.\n";
    std::int64_t number = 0;
    for (const AccessPreset& preset : AccessPresetFields()) {
        out += u"; " + preset.meaning;
        if (!preset.version.empty()) {
            out += u" (Office " + preset.version + u")";
        }
        out += u"\nAccRegList" + text::Decimal(++number, 2) + u" = " + preset.entry + u"\n";
    }
    context.Out(out);
    return kDone;
}

}  // namespace tarvex
