#include "window/preview/PreviewEntries.h"

#include <utility>

#include "app/StartPicture.h"
#include "branding/BrandFields.h"
#include "simulation/KeyListLead.h"
#include "window/keylist/KeyListField.h"

namespace tarvex {
namespace {

struct List {
    KeyListFields fields;
    const KeyListRules& rules;
};

constexpr List kLists[] = {{kAccRegList, kAccessListRules},
                           {kDBRegList, kDatabaseListRules},
                           {kSysDBRegList, kSystemDatabaseListRules},
                           {kPicRegList, kPictureListRules}};

EntryAnswer AnswerOf(KeyListLead lead, bool isUnknown) {
    if (isUnknown) {
        constexpr std::u16string_view kUnknown = u"unbekannt (nicht beschrieben)";
        return {false, lead.path.empty() ? std::u16string(kUnknown)
                                         : lead.path + u" – " + std::u16string(kUnknown)};
    }
    if (lead.path.empty()) {
        return {false, std::move(lead.reason)};
    }
    return {lead.exists, lead.path + (lead.exists ? u" – vorhanden" : u" – nicht vorhanden")};
}

}  // namespace

EntryAnswers AnswerEntries(const Settings& settings, const LaunchEnvironment& environment,
                           UnknownAnswer* unknown) {
    EntryAnswers answers;
    UnknownAnswer never;
    UnknownAnswer& isUnknown = unknown != nullptr ? *unknown : never;
    for (const List& list : kLists) {
        for (const std::int32_t number : list.fields.Numbers()) {
            for (const std::u16string& piece :
                 EntriesOfField(list.fields, settings.Value(number))) {
                const std::u16string entry(TrimBlanksAndTabs(piece));
                isUnknown.given = false;
                KeyListLead lead = FollowEntry(environment, list.rules, entry);
                answers[{list.fields.first, entry}] = AnswerOf(std::move(lead), isUnknown.given);
            }
        }
    }
    return answers;
}

}  // namespace tarvex
