#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "text/Text.h"
#include "window/form/Form.h"

namespace tarvex {

/// A form whose states the test sets. What is entered becomes the state; every call is recorded in
/// `log`, in UTF-8: "Text ID TEXT", "Checked ID", "Unchecked ID", "Select ID INDEX", "Press ID",
/// "Undo ID", "Accept".
class FakeForm : public FormModel {
public:
    std::vector<FormRow> rows;
    std::map<std::int32_t, RowState> states;
    std::vector<std::string> log;
    bool canUndo = false;
    bool accepts = true;
    bool raises = false;  ///< when a button is pressed, or the form accepted

    const std::vector<FormRow>& Rows() const override { return rows; }
    RowState State(std::int32_t id) const override {
        const auto found = states.find(id);
        return found == states.end() ? RowState() : found->second;
    }
    void SetText(std::int32_t id, std::u16string_view text) override {
        Record("Text", id, " " + text::ToUtf8(text));
        states[id].text = text;
    }
    void SetChecked(std::int32_t id, bool checked) override {
        Record(checked ? "Checked" : "Unchecked", id);
        const FormRow* const chosen = Find(id);
        for (const FormRow& row : rows) {
            if (chosen != nullptr && chosen->kind == RowKind::Radio && row.kind == RowKind::Radio &&
                row.group == chosen->group) {
                states[row.id].checked = false;
            }
        }
        states[id].checked = checked;
    }
    void Select(std::int32_t id, std::int32_t index) override {
        Record("Select", id, " " + std::to_string(index));
        states[id].selected = index;
    }
    void Press(std::int32_t buttonId) override {
        Record("Press", buttonId);
        RaiseIfWanted();
    }
    bool Undo(std::int32_t id) override {
        Record("Undo", id);
        if (canUndo) {
            states[id].text = u"zurück";
        }
        return canUndo;
    }
    bool Accept() override {
        log.emplace_back("Accept");
        RaiseIfWanted();
        return accepts;
    }

private:
    const FormRow* Find(std::int32_t id) const {
        for (const FormRow& row : rows) {
            if (row.id == id) {
                return &row;
            }
        }
        return nullptr;
    }
    void Record(const std::string& call, std::int32_t id, const std::string& more = {}) {
        log.push_back(call + " " + std::to_string(id) + more);
    }
    void RaiseIfWanted() const {
        if (raises) {
            throw std::runtime_error("form failed");
        }
    }
};

}  // namespace tarvex
