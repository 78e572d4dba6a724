#include "window/files/ChangesForm.h"

#include <utility>

#include "text/Text.h"

namespace tarvex {
namespace {

std::vector<FormRow> MakeRows() {
    return {
        {.kind = RowKind::Text, .id = ChangesForm::kLeftOutText, .label = {}},
        {.kind = RowKind::List,
         .id = ChangesForm::kLeftOut,
         .label = u"&Nicht übernommen",
         .lines = 5,
         .columns = {u"Feld", u"Grund"}},
        {.kind = RowKind::Text, .id = ChangesForm::kChangesText, .label = {}},
        {.kind = RowKind::List,
         .id = ChangesForm::kChanges,
         .label = u"&Änderungen",
         .grows = true,
         .columns = {u"Feld", u"Bisher", u"Neu"}},
        {.kind = RowKind::Check,
         .id = ChangesForm::kClear,
         .label = u"Was dort leer ist, auch hier &leeren"},
    };
}

/// Values of several lines stand in one.
std::u16string InOneLine(std::u16string_view value) {
    return text::Replace(value, text::kLineBreak, u" ");
}

}  // namespace

ChangesForm::ChangesForm(Document& document, Settings settings, const Problems& leftOut, bool clear)
    : document_(document),
      settings_(std::move(settings)),
      mayClear_(clear),
      clear_(clear),
      rows_(MakeRows()) {
    for (const Problem& problem : leftOut) {
        const std::u16string line =
            problem.line > 0 ? u"Zeile " + text::Decimal(problem.line) : std::u16string();
        std::u16string field = problem.field;
        text::AppendWithSeparator(field, line, u", ", true);
        leftOut_.push_back({field, InOneLine(problem.text)});
    }
    Compare();
}

std::size_t ChangesForm::Apply() {
    document_.Enter(settings_);
    for (const Difference& change : changes_) {
        if (!settings_.Has(change.number)) {
            document_.SetText(change.number, {});
        }
    }
    return changes_.size();
}

RowState ChangesForm::State(std::int32_t id) const {
    RowState state;
    switch (id) {
        case kLeftOutText:
            state.visible = !leftOut_.empty();
            state.text = u"Das kann nicht übernommen werden und bleibt weg:";
            break;
        case kLeftOut:
            state.visible = !leftOut_.empty();
            state.items = leftOut_;
            state.selected = selectedLeftOut_;
            break;
        case kChangesText:
            state.text = changes_.empty()       ? u"Es ändert sich nichts."
                         : changes_.size() == 1 ? u"1 Angabe ändert sich:"
                                                : CountOfValues(changes_.size()) + u" ändern sich:";
            break;
        case kChanges:
            state.items = DifferenceItems(changes_);
            state.selected = selectedChange_;
            break;
        default:
            state.visible = mayClear_;
            state.checked = clear_;
            break;
    }
    return state;
}

void ChangesForm::SetChecked(std::int32_t id, bool checked) {
    if (id == kClear) {
        clear_ = checked;
        selectedChange_ = -1;
        Compare();
    }
}

void ChangesForm::Select(std::int32_t id, std::int32_t index) {
    (id == kLeftOut ? selectedLeftOut_ : selectedChange_) = index;
}

void ChangesForm::Compare() {
    const Settings before = document_.Values();
    Settings after = before;
    after.SetAll(settings_);
    if (clear_) {
        for (const auto& [number, entry] : before.Entries()) {
            if (!settings_.Has(number)) {
                after.Set(number, {});
            }
        }
    }
    changes_ = CompareSettings(before, after);
}

std::vector<std::vector<std::u16string>> DifferenceItems(
    const std::vector<Difference>& differences) {
    std::vector<std::vector<std::u16string>> items;
    for (const Difference& each : differences) {
        const BrandField& field = *FindField(each.number);
        items.push_back({std::u16string(field.name),
                         InOneLine(ShownValue(field, each.before, false)),
                         InOneLine(ShownValue(field, each.after, false))});
    }
    return items;
}

std::u16string CountOfValues(std::size_t count) {
    return text::Decimal(static_cast<std::int64_t>(count)) +
           (count == 1 ? u" Angabe" : u" Angaben");
}

}  // namespace tarvex
