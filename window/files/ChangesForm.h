#pragma once

#include <cstdint>
#include <vector>

#include "configurator/SettingsDifference.h"
#include "window/document/Document.h"
#include "window/form/Form.h"

namespace tarvex {

/// Shows what settings from elsewhere would change in a document, and what of them cannot be taken,
/// before anything is changed.
class ChangesForm : public FormModel {
public:
    static constexpr std::int32_t kLeftOutText = 100;
    static constexpr std::int32_t kLeftOut = 101;
    static constexpr std::int32_t kChangesText = 102;
    static constexpr std::int32_t kChanges = 103;
    static constexpr std::int32_t kClear = 104;

    /// `leftOut` is what is not among the settings although it is there. With `clear` the user is
    /// offered to empty fields that have nothing there, and it is chosen at first. The document
    /// outlives the form.
    ChangesForm(Document& document, Settings settings, const Problems& leftOut, bool clear);

    /// Enters the settings into the document. Returns how many fields have another value now.
    std::size_t Apply();

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void SetChecked(std::int32_t id, bool checked) override;
    void Select(std::int32_t id, std::int32_t index) override;

private:
    void Compare();

    Document& document_;
    Settings settings_;
    bool mayClear_;
    bool clear_;
    std::vector<FormRow> rows_;
    std::vector<std::vector<std::u16string>> leftOut_;
    std::vector<Difference> changes_;
    std::int32_t selectedLeftOut_ = -1;
    std::int32_t selectedChange_ = -1;
};

/// Lines of a list for differences: the field, and both values without secrets.
std::vector<std::vector<std::u16string>> DifferenceItems(
    const std::vector<Difference>& differences);

/// "1 Angabe" or "3 Angaben".
std::u16string CountOfValues(std::size_t count);

}  // namespace tarvex
