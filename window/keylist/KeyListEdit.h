#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window/document/Document.h"

namespace tarvex {

/// The fields of one registry key list as a list of entries, and what is done with it. Fields in
/// use keep their places, gaps between them too: the launcher passes over empty fields. Each
/// operation is one step to undo, whatever number of fields it changes. Lives as long as its
/// document, so that it knows all of its own steps.
class KeyListEdit {
public:
    /// One entry. A field that the launcher divides gives several.
    struct Line {
        std::int32_t number = 0;   ///< of its field
        std::size_t position = 0;  ///< 0-based among the entries of its field
        std::size_t count = 0;     ///< entries of its field
        std::u16string entry;      ///< as it stands there
    };

    KeyListEdit(Document& document, const KeyListFields& list);

    const KeyListFields& List() const { return list_; }
    Document& Target() const { return document_; }

    /// The entries in the order in which they are tried.
    std::vector<Line> Lines() const;

    /// Fields that are free, gaps included.
    std::size_t Room() const;

    /// All entries of the line's field.
    std::vector<std::u16string> EntriesOf(const Line& line) const;

    /// An empty line for an entry that is to be added. Only with room.
    Line NewLine() const;

    // Operations. Lines are meant by their 0-based numbers in Lines().

    /// Adds fields at the end, as many as there is room for; closes gaps when only they are free.
    void Add(const std::vector<std::u16string>& texts);

    void Change(std::size_t line, std::u16string_view entry);

    /// The entries directly behind it move up when its field has become empty, as far as the next
    /// gap.
    void Remove(std::size_t line);

    bool CanMove(std::size_t line, bool up) const;

    /// Changes places with the entry before or behind; each field keeps its number of entries.
    void Move(std::size_t line, bool up);

    /// Every field back to what stands in the file.
    void Revert();

    /// Takes back the last operation. What something else has changed in the fields since is taken
    /// back first, step by step. False when there is nothing.
    bool Undo();

private:
    using Texts = std::array<std::u16string, KeyListFields::kCount>;

    struct Step {
        Texts before;
        Texts after;
    };

    Texts Current() const;
    void Apply(const Texts& texts);
    void TakeBack(const Texts& current, const Texts& target, bool whole);
    Texts Moved(std::size_t line, bool up) const;

    Document& document_;
    KeyListFields list_;
    Texts base_;  // what the fields held before the first step
    std::vector<Step> steps_;
};

}  // namespace tarvex
