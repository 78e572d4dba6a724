#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "text/Text.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// Answers every dialog with what the test has put in its queue, records what was asked in `log`,
/// and cancels whatever no answer is left for.
class FakeUserDialogs : public UserDialogs {
public:
    /// Plays the user of a form: true when the default button is pressed.
    using FormUser = std::function<bool(FormModel& form)>;

    std::deque<std::int32_t> answers;  ///< for Ask; without one its cancel button, else the last
    std::deque<std::u16string> paths;  ///< for files and folders
    std::deque<FormUser> formUsers;
    std::u16string clipboard;

    /// "Frage: TEXT [CAPTION|CAPTION]", "Datei: TITLE", "Neue Datei: TITLE", "Ordner: TITLE",
    /// "Fenster: TITLE", in UTF-8.
    std::vector<std::string> log;
    std::vector<BoxQuestion> questions;
    std::vector<FileQuestion> fileQuestions;

    std::int32_t Ask(const BoxQuestion& question) override {
        std::u16string captions;
        for (const std::u16string& caption : question.captions) {
            text::AppendWithSeparator(captions, caption, u"|");
        }
        Record(u"Frage: " + question.text + u" [" + captions + u"]");
        questions.push_back(question);
        const auto last = static_cast<std::int32_t>(question.captions.size()) - 1;
        return Next(answers, question.cancel >= 0 ? question.cancel : last);
    }
    std::u16string ChooseFile(const FileQuestion& question) override {
        Record(u"Datei: " + question.title);
        fileQuestions.push_back(question);
        return Next(paths, {});
    }
    std::u16string ChooseNewFile(const FileQuestion& question) override {
        Record(u"Neue Datei: " + question.title);
        fileQuestions.push_back(question);
        return Next(paths, {});
    }
    std::u16string ChooseFolder(std::u16string_view title, std::u16string_view folder) override {
        Record(u"Ordner: " + std::u16string(title));
        fileQuestions.push_back({std::u16string(title), std::u16string(folder)});
        return Next(paths, {});
    }
    bool ShowForm(FormModel& form, const FormDialogTexts& texts) override {
        Record(u"Fenster: " + texts.title);
        const FormUser user = Next(formUsers, {});
        return user && user(form) && form.Accept();
    }
    void CopyToClipboard(std::u16string_view text) override { clipboard = text; }
    std::u16string Clipboard() override { return clipboard; }

private:
    template <class Value>
    static Value Next(std::deque<Value>& queue, Value otherwise) {
        if (queue.empty()) {
            return otherwise;
        }
        Value value = std::move(queue.front());
        queue.pop_front();
        return value;
    }
    void Record(std::u16string_view line) { log.push_back(text::ToUtf8(line)); }
};

}  // namespace tarvex
