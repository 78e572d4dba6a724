#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "branding/BrandFields.h"
#include "text/TextCodec.h"

namespace tarvex {

/// One thing that is wrong, as it is told to the user in one line.
struct Problem {
    std::u16string place;   ///< the file, or the option of the command line; may be empty
    std::int32_t line = 0;  ///< 1-based line of a settings file; 0: none
    std::u16string field;   ///< name of the field; may be empty
    std::u16string text;    ///< German
};

using Problems = std::vector<Problem>;

/// "Kunden.ini, Zeile 12, Pwd: ..." without a line break; a line break inside becomes a blank.
std::u16string ProblemLine(const Problem& problem);

/// Adds the problems of `more` to the end of `problems`.
void Append(Problems& problems, Problems more);

/// Plain values of fields, each with the line of the settings file that it came from.
class Settings {
public:
    struct Entry {
        std::u16string value;   ///< plain, in the form that AcceptValue gives
        std::int32_t line = 0;  ///< 1-based; 0 when the value is from no settings file
    };

    /// The value of a field, empty when there is none.
    std::u16string_view Value(std::int32_t number) const;

    /// Line of the value, 0 when it has none.
    std::int32_t Line(std::int32_t number) const;

    /// True when the field was set, to an empty value included.
    bool Has(std::int32_t number) const { return entries_.contains(number); }

    void Set(std::int32_t number, std::u16string_view value, std::int32_t line = 0);

    /// Sets all that is set in `more`, over what is set here, the icon with its field.
    void SetAll(const Settings& more);

    /// The fields that were set, under their numbers.
    const std::map<std::int32_t, Entry>& Entries() const { return entries_; }

    /// Content of the .ico file that the field IconFile names; empty when nobody has read one.
    const std::string& Icon() const { return icon_; }
    void SetIcon(std::string bytes) { icon_ = std::move(bytes); }

private:
    std::map<std::int32_t, Entry> entries_;
    std::string icon_;
};

/// The text without blanks and tabs at its ends.
std::u16string_view TrimBlanksAndTabs(std::u16string_view text);

/// A value as a person entered it, in the form that the settings keep.
struct AcceptedValue {
    std::u16string value;    ///< without blanks and tabs at its ends; a flag is "1", "0" or empty
    std::u16string problem;  ///< German, why the field cannot take it; empty when it can
};

/// Checks a value for its field: flags ("1", "0", "ja", "nein", "true", "false"), characters of the
/// code page, length of the stored form. What the value means is not checked. A text of the program
/// file is one line of any characters; an empty one is a value too.
AcceptedValue AcceptValue(const BrandField& field, std::u16string_view entered,
                          const TextCodec& codec);

/// Number of single-character changes between two names, case ignored.
std::size_t NameDistance(std::u16string_view a, std::u16string_view b);

/// "Unbekannter Name 'DBPaht'; gemeint ist vielleicht DBPath."
std::u16string UnknownNameText(std::u16string_view name);

/// The same for another set of names, which is not empty.
std::u16string UnknownNameText(std::u16string_view name,
                               const std::vector<std::u16string_view>& known);

/// All fields that settings can have, those of the program file included, sorted by their numbers.
const std::vector<const BrandField*>& FieldsByNumber();

/// Such a field, whether it has a mark or belongs to the program file; null when there is none.
const BrandField* FindField(std::int32_t number);

/// As FindField, with case ignored.
const BrandField* FindFieldByName(std::u16string_view name);

/// Characters that a field holds whatever printable ASCII characters they are. For a credential,
/// which is stored as a list of numbers, this is less than its width.
std::int32_t UsableWidth(const BrandField& field, const TextCodec& codec);

/// The same for what may follow a text in a credential, which has room for that text.
std::int32_t RoomAfterCredential(const BrandField& field, std::u16string_view text,
                                 const TextCodec& codec);

}  // namespace tarvex
