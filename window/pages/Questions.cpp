#include "window/pages/Questions.h"

#include <algorithm>
#include <set>

#include "window/keylist/KeyListPart.h"
#include "window/pages/Pages.h"

namespace tarvex {
namespace {

using Numbers = std::vector<std::int32_t>;

bool Contains(const Numbers& numbers, std::int32_t number) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

Numbers ListFields(const KeyListFields& list, std::int32_t more = 0) {
    const auto all = list.Numbers();
    Numbers numbers(all.begin(), all.end());
    if (more != 0) {
        numbers.push_back(more);
    }
    return numbers;
}

/// The answers that all questions but that for Access have. `more` is a field that counts with all
/// but the first; 0: none.
Question FileQuestionOf(std::int32_t firstRow, std::int32_t name, std::int32_t path,
                        const KeyListFields& list, std::int32_t more = 0) {
    Numbers beside = {name};
    Numbers place = {path, name};
    Numbers besideRows = {name};
    Numbers placeRows = {path, SecondRow(name)};
    Numbers listRows = {KeyListRow(list), KeyListRow(list) + KeyListPart::kAnswerRow};
    if (more != 0) {
        for (Numbers* numbers : {&beside, &place, &besideRows, &placeRows, &listRows}) {
            numbers->push_back(more);
        }
    }
    return {{
        {firstRow, {}, {}, {}},
        {firstRow + 1, {name}, beside, besideRows},
        {firstRow + 2, {path}, place, placeRows},
        {firstRow + 3, ListFields(list), ListFields(list, more), listRows},
    }};
}

Question AccessQuestion() {
    return {{
        {kAccessUnset, {}, {}, {}},
        {kAccessPlace, {kFieldAccPath}, {kFieldAccPath}, {kFieldAccPath}},
        {kAccessRegistry,
         ListFields(kAccRegList),
         ListFields(kAccRegList),
         {KeyListRow(kAccRegList), KeyListRow(kAccRegList) + KeyListPart::kAnswerRow}},
    }};
}

std::set<std::int32_t> FieldsOf(const Question& question) {
    std::set<std::int32_t> fields;
    for (const QuestionOption& option : question.options) {
        fields.insert(option.fields.begin(), option.fields.end());
    }
    return fields;
}

bool HasText(const Document& document, std::int32_t number) {
    return !TrimBlanksAndTabs(document.Text(number)).empty();
}

/// The fields of the question that do not count with the option.
std::set<std::int32_t> OtherFields(const Question& question, const QuestionOption& option) {
    std::set<std::int32_t> others = FieldsOf(question);
    for (const std::int32_t number : option.fields) {
        others.erase(number);
    }
    return others;
}

template <class Holds>
const QuestionOption& LastOption(const Question& question, Holds holds) {
    const auto found = std::find_if(question.options.rbegin(), question.options.rend(), holds);
    return found != question.options.rend() ? *found : question.options.front();
}

}  // namespace

const std::vector<Question>& Questions() {
    static const std::vector<Question> questions = {
        AccessQuestion(),
        FileQuestionOf(kDatabaseOwnName, kFieldDBFilename, kFieldDBPath, kDBRegList),
        FileQuestionOf(kWorkgroupNone, kFieldSysDBFilename, kFieldSysDBPath, kSysDBRegList),
        FileQuestionOf(kPictureNone, kFieldPicFilename, kFieldPicPath, kPicRegList, kFieldPicDelay),
    };
    return questions;
}

const Question* QuestionOfOption(std::int32_t row) {
    for (const Question& question : Questions()) {
        for (const QuestionOption& option : question.options) {
            if (option.row == row) {
                return &question;
            }
        }
    }
    return nullptr;
}

const Question* QuestionOfField(std::int32_t number) {
    for (const Question& question : Questions()) {
        for (const QuestionOption& option : question.options) {
            if (Contains(option.fields, number)) {
                return &question;
            }
        }
    }
    return nullptr;
}

const QuestionOption& ChosenOption(const Document& document, const Question& question) {
    const std::set<std::int32_t> fields = FieldsOf(question);
    const auto isParked = [&document](std::int32_t number) { return document.IsParked(number); };
    const auto isSign = [&document](std::int32_t number) {
        return !document.IsParked(number) && HasText(document, number);
    };
    const bool isAnyParked = std::any_of(fields.begin(), fields.end(), isParked);
    return LastOption(question, [&](const QuestionOption& option) {
        const bool isWhole =
            isAnyParked && std::none_of(option.fields.begin(), option.fields.end(), isParked);
        return isWhole || std::any_of(option.signs.begin(), option.signs.end(), isSign);
    });
}

void ChooseOption(Document& document, std::int32_t row) {
    const Question* question = QuestionOfOption(row);
    if (question == nullptr || ChosenOption(document, *question).row == row) {
        return;
    }
    const QuestionOption& option = LastOption(
        *question, [row](const QuestionOption& candidate) { return candidate.row == row; });
    document.SetParked({option.fields.begin(), option.fields.end()}, false);
    document.SetParked(OtherFields(*question, option), true);
}

void HoldOption(Document& document, std::int32_t number) {
    const Question* question = QuestionOfField(number);
    if (question == nullptr) {
        return;
    }
    const QuestionOption& chosen = ChosenOption(document, *question);
    std::set<std::int32_t> empty;
    for (const std::int32_t other : OtherFields(*question, chosen)) {
        if (!HasText(document, other)) {
            empty.insert(other);
        }
    }
    document.SetParked({chosen.fields.begin(), chosen.fields.end()}, false);
    document.SetParked(empty, true);
}

void RevertQuestion(Document& document, const Question& question) {
    const std::set<std::int32_t> fields = FieldsOf(question);
    document.SetParked(fields, false);
    for (const std::int32_t number : fields) {
        document.Revert(number);
    }
}

bool IsRowInUse(const Document& document, std::int32_t row) {
    for (const Question& question : Questions()) {
        const bool isOfQuestion =
            std::any_of(question.options.begin(), question.options.end(),
                        [row](const QuestionOption& option) { return Contains(option.rows, row); });
        if (isOfQuestion) {
            return Contains(ChosenOption(document, question).rows, row);
        }
    }
    return true;
}

std::int32_t UsableRow(const Document& document, std::int32_t row) {
    if (IsRowInUse(document, row)) {
        return row;
    }
    for (const Question& question : Questions()) {
        for (const QuestionOption& option : question.options) {
            if (Contains(option.rows, row)) {
                return option.row;
            }
        }
    }
    return row;
}

std::int32_t RowToGoTo(const Document& document, std::int32_t number) {
    const Question* question = QuestionOfField(number);
    if (question == nullptr) {
        return RowOfField(number);
    }
    const QuestionOption& chosen = ChosenOption(document, *question);
    if (!Contains(chosen.fields, number)) {
        const auto wanted = std::find_if(
            question->options.begin(), question->options.end(),
            [number](const QuestionOption& option) { return Contains(option.fields, number); });
        return wanted->row;
    }
    return Contains(chosen.rows, SecondRow(number)) ? SecondRow(number) : RowOfField(number);
}

}  // namespace tarvex
