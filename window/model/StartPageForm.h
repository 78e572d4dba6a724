#pragma once
#include "window/model/Form.h"
namespace tarvex {
class StartPageForm : public FormModel {
public:
    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t) const override { return {}; }
    void SetText(std::int32_t, std::u16string_view) override {}
    void SetChecked(std::int32_t, bool) override {}
    void Select(std::int32_t, std::int32_t) override {}
    void Press(std::int32_t) override {}
    std::vector<FormRow> rows_ = {{RowKind::Heading, 0, u"Tarvex"}};
};
}  // namespace tarvex
