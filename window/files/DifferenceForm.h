#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "configurator/SettingsDifference.h"
#include "window/form/Form.h"

namespace tarvex {

/// Shows where two files have different settings; users and passwords stay hidden.
class DifferenceForm : public FormModel {
public:
    static constexpr std::int32_t kText = 100;
    static constexpr std::int32_t kDifferences = 101;

    /// The names of both files, and what differs from the first one to the second.
    DifferenceForm(std::u16string_view here, std::u16string_view there,
                   const std::vector<Difference>& differences);

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void Select(std::int32_t /*id*/, std::int32_t index) override { selected_ = index; }

private:
    std::vector<FormRow> rows_;
    std::vector<std::vector<std::u16string>> items_;
    std::int32_t selected_ = -1;
};

}  // namespace tarvex
