#pragma once

#include <cstdint>
#include <vector>

#include "window/document/Document.h"

namespace tarvex {

// Where fields exclude each other, a page asks the question behind them. Its answers are rows of
// the kind Radio; which one is given is not kept anywhere, it shows in the texts of the document
// and in what is parked.

inline constexpr std::int32_t kAccessUnset = 4100;
inline constexpr std::int32_t kAccessPlace = 4101;
inline constexpr std::int32_t kAccessRegistry = 4102;

inline constexpr std::int32_t kDatabaseOwnName = 4200;
inline constexpr std::int32_t kDatabaseBeside = 4201;
inline constexpr std::int32_t kDatabasePlace = 4202;
inline constexpr std::int32_t kDatabaseRegistry = 4203;

inline constexpr std::int32_t kWorkgroupNone = 4300;
inline constexpr std::int32_t kWorkgroupBeside = 4301;
inline constexpr std::int32_t kWorkgroupPlace = 4302;
inline constexpr std::int32_t kWorkgroupRegistry = 4303;

inline constexpr std::int32_t kPictureNone = 4400;
inline constexpr std::int32_t kPictureBeside = 4401;
inline constexpr std::int32_t kPicturePlace = 4402;
inline constexpr std::int32_t kPictureRegistry = 4403;

/// One answer.
struct QuestionOption {
    std::int32_t row;  ///< id of its radio row

    /// A document with a text in one of these fields gives this answer. None: that is the answer of
    /// a document without any.
    std::vector<std::int32_t> signs;

    /// Fields that count with this answer, its signs among them.
    std::vector<std::int32_t> fields;

    /// Rows that can be used with this answer.
    std::vector<std::int32_t> rows;
};

struct Question {
    /// In the order of the page. When a document has signs of several, the last of them counts, as
    /// for the launcher.
    std::vector<QuestionOption> options;
};

const std::vector<Question>& Questions();

/// The question that has this radio row; null when none has.
const Question* QuestionOfOption(std::int32_t row);

/// The question that this field belongs to; null when it belongs to none.
const Question* QuestionOfField(std::int32_t number);

/// The answer that holds: the last one that the document has a sign of. When fields of the question
/// are parked, an answer without any parked field holds without a sign too.
const QuestionOption& ChosenOption(const Document& document, const Question& question);

/// Gives an answer: fields that do not count with it are parked, the others not any more. Does
/// nothing when it is the answer already.
void ChooseOption(Document& document, std::int32_t row);

/// Keeps the answer while texts of its fields change: without this, deleting the last text would
/// be another answer. No value changes by it.
void HoldOption(Document& document, std::int32_t number);

/// All fields of the question as they are saved, nothing parked.
void RevertQuestion(Document& document, const Question& question);

/// False for a row that belongs to an answer which is not the chosen one: it is not shown.
bool IsRowInUse(const Document& document, std::int32_t row);

/// The row itself, or, when it belongs to an answer that is not the chosen one, the row of that
/// answer, which is to be given first.
std::int32_t UsableRow(const Document& document, std::int32_t row);

/// The row to go to for a field: where it is edited with the answers that hold, or the answer that
/// would have to be given first.
std::int32_t RowToGoTo(const Document& document, std::int32_t number);

}  // namespace tarvex
