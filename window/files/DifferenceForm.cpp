#include "window/files/DifferenceForm.h"

#include "text/Text.h"
#include "window/files/ChangesForm.h"

namespace tarvex {

DifferenceForm::DifferenceForm(std::u16string_view here, std::u16string_view there,
                               const std::vector<Difference>& differences)
    : items_(DifferenceItems(differences)) {
    const std::u16string columns[] = {u"Hier: " + std::u16string(here),
                                      u"Dort: " + std::u16string(there)};
    rows_ = {{.kind = RowKind::Text, .id = kText, .label = {}},
             {.kind = RowKind::List,
              .id = kDifferences,
              .label = u"&Unterschiede",
              .grows = true,
              .columns = {u"Feld", columns[0], columns[1]}}};
}

RowState DifferenceForm::State(std::int32_t id) const {
    RowState state;
    if (id == kText) {
        state.text = items_.empty()
                         ? u"Kein Unterschied."
                         : CountOfValues(items_.size()) +
                               (items_.size() == 1 ? u" ist verschieden:" : u" sind verschieden:");
    } else {
        state.visible = !items_.empty();
        state.items = items_;
        state.selected = selected_;
    }
    return state;
}

}  // namespace tarvex
