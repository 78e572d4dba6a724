#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "configurator/AccessPresets.h"
#include "window/form/Form.h"
#include "window/keylist/KeyListEdit.h"

namespace tarvex {

/// The places where Access is known to stand, to be taken into its key list. What is taken is in
/// the list at once; the dialog stays open for more.
class PresetsForm : public FormModel {
public:
    static constexpr std::int32_t kListRow = 100;
    static constexpr std::int32_t kStateRow = 101;  ///< what the list still has room for
    static constexpr std::int32_t kTakeButton = 110;
    static constexpr std::int32_t kTakeAllButton = 111;

    /// `edit` is that of the Access list and outlives the form.
    explicit PresetsForm(KeyListEdit& edit);

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void Select(std::int32_t id, std::int32_t index) override;
    void Press(std::int32_t buttonId) override;

private:
    bool IsTaken(const AccessPreset& preset) const;
    std::vector<std::u16string> Missing() const;

    KeyListEdit& edit_;
    std::vector<FormRow> rows_;
    std::int32_t selected_ = 0;
};

/// Presets the Access key list of a new document: all known versions, the newest first, then the
/// program that Windows has registered. One field is left free for the vendor's own entry.
void EnterKnownAccessPlaces(Document& document);

}  // namespace tarvex
