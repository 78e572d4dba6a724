#include <algorithm>
#include <iterator>

#include "configurator/checks/CheckRun.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

/// What between two bars, with the percent signs beside them, could be meant as a marker; from the
/// first bar on when there is only one. Empty without a bar.
std::u16string_view FindMarkerLike(std::u16string_view text) {
    const std::size_t first = text.find(u'|');
    if (first == kNone) {
        return {};
    }
    const std::size_t start = first > 0 && text[first - 1] == u'%' ? first - 1 : first;
    std::size_t end = text.find(u'|', first + 1);
    if (end != kNone) {
        end += text::Drop(text, end + 1).starts_with(u'%') ? 2U : 1U;
    }
    return text.substr(start, end == kNone ? kNone : end - start);
}

bool IsMarkerName(std::u16string_view variable) {
    const std::u16string_view names[] = {u"%SubDir%", u"%Filename%", u"%File%"};
    return std::any_of(std::begin(names), std::end(names), [variable](std::u16string_view name) {
        return text::EqualsIgnoreCase(variable, name);
    });
}

}  // namespace

bool CheckMarkers(CheckRun& run, std::int32_t number, std::u16string_view text,
                  const KeyListEntry& entry) {
    const KeyListMarkers markers;
    for (const std::u16string_view marker : {markers.subFolder, markers.fileName}) {
        if (text::FindIgnoreCase(entry.fileName, marker) != kNone ||
            text::FindIgnoreCase(entry.subFolder, marker) != kNone) {
            run.Report(u"key-list-marker-order", number,
                       EntryText(text) +
                           u"enthält eine Marke doppelt oder an falscher Stelle; zuerst "
                           u"kommt '%|SubDir|%' mit dem Unterordner, dann '%|Filename%|' mit "
                           u"dem Dateinamen.");
            return false;
        }
    }
    // A tab takes the place of the known markers: nothing around them grows together.
    std::u16string rest(text);
    for (const std::u16string_view marker : {markers.fileName, markers.subFolder, markers.list}) {
        for (std::size_t at = text::FindIgnoreCase(rest, marker); at != kNone;
             at = text::FindIgnoreCase(rest, marker)) {
            rest.replace(at, marker.size(), u"\t");
        }
    }
    std::u16string_view found = FindMarkerLike(rest);
    const std::u16string_view variable = FindVariable(text::Left(rest, rest.find(u'\t')));
    if (found.empty() && IsMarkerName(variable)) {
        found = variable;
    }
    if (found.find(u'%') != kNone) {
        run.Report(u"key-list-marker", number,
                   Quoted(found) +
                       u" ist keine Marke; es gibt '%|SubDir|%' vor einem Unterordner, "
                       u"'%|Filename%|' vor einem Dateinamen und '%|%' zwischen Einträgen.");
        return false;
    }
    if (!found.empty()) {
        run.Report(u"key-list-bar", number,
                   EntryText(text) +
                       u"enthält '|' außerhalb einer Marke. In einer Stapeldatei (.bat, .cmd) "
                       u"muss '%%|SubDir|%%' für '%|SubDir|%' stehen.");
        return false;
    }
    if (!variable.empty()) {
        run.Report(u"key-variable", number,
                   Quoted(variable) + u" wird in einem Schlüssel nicht ersetzt.");
    }
    return true;
}

}  // namespace tarvex
