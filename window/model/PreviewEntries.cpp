#include "window/model/PreviewEntries.h"

#include <utility>
#include <vector>

#include "app/StartPicture.h"
#include "branding/BrandFields.h"
#include "simulation/KeyListLead.h"
#include "text/Text.h"

namespace tarvex {
namespace {

struct List {
    KeyListFields fields;
    const KeyListRules& rules;
    bool divided;  ///< its fields are joined, and the whole is divided at the list marker
};

constexpr List kLists[] = {{kAccRegList, kAccessListRules, true},
                           {kDBRegList, kDatabaseListRules, true},
                           {kSysDBRegList, kSystemDatabaseListRules, true},
                           {kPicRegList, kPictureListRules, false}};

class EntryAnswers {
public:
    EntryAnswers(const LaunchEnvironment& environment, UnknownAnswer* unknown)
        : environment_(environment), unknown_(unknown != nullptr ? *unknown : never_) {}

    EntryAnswer OfField(const List& list, std::u16string_view value) {
        const std::vector<std::u16string> entries =
            list.divided ? text::SplitList(value, KeyListMarkers().list)
                         : std::vector<std::u16string>{std::u16string(value)};
        EntryAnswer all;
        bool sure = true;
        for (const std::u16string& entry : entries) {
            EntryAnswer answer = OfEntry(list.rules, entry);
            sure = sure && !unknown_.given;
            if (answer.exists && sure) {
                return answer;
            }
            text::AppendWithSeparator(all.text, answer.text, u"; ");
            if (answer.exists) {
                break;
            }
        }
        return all;
    }

private:
    EntryAnswer OfEntry(const KeyListRules& rules, std::u16string_view entry) {
        unknown_.given = false;
        KeyListLead lead = FollowEntry(environment_, rules, entry);
        if (unknown_.given) {
            constexpr std::u16string_view kUnknown = u"unbekannt (nicht beschrieben)";
            return {false, lead.path.empty() ? std::u16string(kUnknown)
                                             : lead.path + u" – " + std::u16string(kUnknown)};
        }
        if (lead.path.empty()) {
            return {false, std::move(lead.reason)};
        }
        return {lead.exists, lead.path + (lead.exists ? u" – vorhanden" : u" – nicht vorhanden")};
    }

    const LaunchEnvironment& environment_;
    UnknownAnswer never_;
    UnknownAnswer& unknown_;
};

}  // namespace

std::map<std::int32_t, EntryAnswer> AnswerEntries(const Settings& settings,
                                                  const LaunchEnvironment& environment,
                                                  UnknownAnswer* unknown) {
    EntryAnswers answers(environment, unknown);
    std::map<std::int32_t, EntryAnswer> result;
    for (const List& list : kLists) {
        for (const std::int32_t number : list.fields.Numbers()) {
            const std::u16string_view value = text::Trim(settings.Value(number));
            if (!value.empty()) {
                result[number] = answers.OfField(list, value);
            }
        }
    }
    return result;
}

}  // namespace tarvex
