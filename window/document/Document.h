#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

/// Which launcher file a document is about.
struct DocumentFile {
    std::u16string path = {};    ///< full path of the launcher, also before it was saved first
    std::u16string source = {};  ///< the unconfigured program that it will be made from; empty:
                                 ///< `path` exists and is changed in its place
    bool readOnly = false;       ///< it can be looked at only
    std::u16string whyReadOnly = {};  ///< German, one sentence; empty unless it is
};

/// The settings of one launcher while they are edited: what stands in the file, what the user has
/// entered, and what he may take back. Texts that a field cannot take are kept as well until he
/// corrects them. A program's fields (number above 1000) belong to it as the marks do.
class Document {
public:
    /// `codec` is that of the settings (one byte per character) and outlives the document.
    Document(DocumentFile file, Settings saved, const TextCodec& codec);

    const DocumentFile& File() const { return file_; }

    /// What stands in the file; of a new one nothing does.
    const Settings& Saved() const { return saved_; }

    /// The file name without its folder.
    std::u16string_view Name() const;
    /// The folder of the launcher with "\" at its end; in it relative paths begin.
    std::u16string_view Folder() const;

    // One field. Numbers are those of FindField.

    /// The text as entered; of a field that nobody has touched, the saved one.
    std::u16string_view Text(std::int32_t number) const;

    /// Enters a text. Does nothing when the document is read-only or the text is the same. With
    /// `typed`, characters that are typed one after the other are one step to undo, and so are
    /// characters that are deleted one after the other; all else begins a new step.
    void SetText(std::int32_t number, std::u16string_view text, bool typed = false);

    bool CanUndo(std::int32_t number) const;
    void Undo(std::int32_t number);

    /// Back to the saved value, as one more step that can be undone.
    void Revert(std::int32_t number);

    /// True when the value differs from the saved one.
    bool IsChanged(std::int32_t number) const;

    /// German, why the field cannot take its text; empty when it can. What stands in the file is
    /// never a problem: it stays as it is.
    std::u16string Problem(std::int32_t number) const;

    /// Characters that still fit; negative when there are too many: so many have to go. Of
    /// credentials, which are stored as numbers, as many as fit for certain.
    std::int32_t RoomLeft(std::int32_t number) const;

    // Fields that the user does not want at the moment, because he has chosen another way: their
    // texts stay, but they count as empty. A read-only document parks nothing.

    void SetParked(const std::set<std::int32_t>& numbers, bool parked);
    bool IsParked(std::int32_t number) const { return parked_.contains(number); }

    /// Fields that are parked and hold a text. It is gone from the file after saving.
    std::vector<std::int32_t> ParkedTexts() const;

    // All fields.

    /// The values as they would be saved, parked ones empty. Texts that their fields cannot take
    /// are left out, and are problems when there is a list for them.
    Settings Values(Problems* problems = nullptr) const;

    /// What must be written so that the file has these values; nothing when it has them.
    Settings Changes() const { return ChangesFrom(saved_); }

    /// The same for a file that holds these values meanwhile.
    Settings ChangesFrom(const Settings& stored) const;

    /// True when there is something that would be lost: a text that its field cannot take, and one
    /// that was entered and is parked, too.
    bool IsDirty() const;
    bool IsNew() const { return !file_.source.empty(); }

    /// The file was written with these values: they are the saved ones now. The texts stay, but for
    /// parked ones, and so does what can be undone.
    void SetSaved(DocumentFile file, Settings saved);

    /// Enters all values of the settings, each as a step of its own field; an icon with its field.
    /// None of these fields is parked afterwards.
    void Enter(const Settings& settings);

    /// The content of the icon file that the field IconFile names now; the caller reads it. It
    /// comes and goes with that text.
    void SetIcon(std::string bytes);

    /// Empty when the file that the field names was not read yet, or when it names none.
    const std::string& Icon() const;

    /// Is called after every change; empty: nobody is.
    void SetListener(std::function<void()> listener) { listener_ = std::move(listener); }

private:
    struct Edited {
        std::u16string text;
        std::vector<std::u16string> before;  // texts to undo to, the last one first to go
    };

    enum class Stroke { None, Insert, Delete, Replace };

    void Change(std::int32_t number, std::u16string text, bool typed);
    AcceptedValue Accepted(std::int32_t number) const;
    std::int32_t CredentialRoomLeft(const BrandField& field) const;
    std::u16string_view IconName() const;
    void KeepSavedIcon();
    void Tell() const;

    DocumentFile file_;
    Settings saved_;
    const TextCodec& codec_;
    std::map<std::int32_t, Edited> edited_;
    std::set<std::int32_t> parked_;
    // By the texts of IconFile that they belong to: a text that is taken back brings its icon.
    std::map<std::u16string, std::string, std::less<>> icons_;
    // Texts of the program that were entered as empty ones: not the same as none, which leaves
    // those of the template.
    std::set<std::int32_t> emptyTexts_;
    std::int32_t typingIn_ = 0;         // field in which the user goes on typing
    Stroke lastStroke_ = Stroke::None;  // there
    std::function<void()> listener_;
};

}  // namespace tarvex
