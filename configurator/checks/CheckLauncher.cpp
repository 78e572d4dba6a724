#include <utility>

#include "configurator/checks/Checks.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string NamesOf(const std::vector<const BrandField*>& fields) {
    std::u16string names;
    for (const BrandField* field : fields) {
        text::AppendWithSeparator(names, field->name, u", ");
    }
    return names;
}

std::u16string NamesOf(const std::vector<LauncherImage::UnknownMark>& marks) {
    std::u16string names;
    for (const LauncherImage::UnknownMark& mark : marks) {
        text::AppendWithSeparator(names, text::Decimal(mark.number, 3) + u" " + mark.name, u", ");
    }
    return names;
}

}  // namespace

Findings CheckLauncher(const LauncherImage& image, std::u16string_view place) {
    const std::u16string file(place);
    Findings findings = AsFindings(u"launcher-file", image.ReadProblems());
    if (!findings.empty()) {
        return findings;
    }
    if (image.IsBranded()) {
        Append(findings, AsFindings(u"not-changeable", image.ChangeProblems()));
    } else {
        Append(findings, AsFindings(u"launcher-file", image.ChangeProblems()));
        findings.push_back(
            {u"not-branded", {file, 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."}});
    }
    Append(findings, CheckVersion(image, place));
    return findings;
}

Findings CheckVersion(const LauncherImage& image, std::u16string_view place) {
    const std::u16string file(place);
    Findings findings;
    if (!image.MissingMarks().empty()) {
        findings.push_back(
            {u"mark-missing",
             {file,
              0,
              {},
              u"Das Startprogramm ist von einer anderen Version und hat diese Felder "
              u"nicht: " +
                  NamesOf(image.MissingMarks()) + u"."}});
    }
    if (!image.UnknownMarks().empty()) {
        findings.push_back({u"mark-unknown",
                            {file,
                             0,
                             {},
                             u"Das Startprogramm ist von einer anderen Version und hat Felder, die "
                             u"hier unbekannt sind und bleiben, wie sie sind: " +
                                 NamesOf(image.UnknownMarks()) + u"."}});
    }
    return findings;
}

}  // namespace tarvex
