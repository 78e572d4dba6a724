#include <algorithm>

#include "configurator/checks/CheckRun.h"
#include "configurator/program/IconFile.h"
#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"
#include "text/Text.h"

namespace tarvex {

void CheckIcon(CheckRun& run) {
    if (run.All().Icon().empty() || !run.All().Has(kFieldIconFile)) {
        return;
    }
    const ReadIcon icon = ReadIconForProgram(run.All().Icon());
    if (!icon.problem.empty()) {
        run.Report(u"icon-file", kFieldIconFile, icon.problem);
        return;
    }
    for (const std::int32_t size : {16, 32, 48}) {
        if (std::none_of(icon.images.begin(), icon.images.end(), [size](const IconImage& image) {
                return image.width == size && image.height == size;
            })) {
            const std::u16string number = text::Decimal(size);
            run.Report(u"icon-size-missing", kFieldIconFile,
                       (u"Dem Symbol fehlt ein Bild von " + number).append(u" x ").append(number) +
                           u" mit 32 Bit Farbtiefe; Windows zeigt an dessen Stelle ein anderes, "
                           u"verkleinert oder vergrößert.");
        }
    }
    for (const std::u16string& leftOut : icon.leftOut) {
        run.Report(u"icon-left-out", kFieldIconFile, u"Nicht ins Programm kommt " + leftOut + u".");
    }
}

}  // namespace tarvex
