#include "window/pages/Pages.h"

#include <algorithm>

#include "configurator/Model.h"
#include "window/keylist/KeyListPart.h"
#include "window/pages/PageRows.h"

namespace tarvex {
namespace {

bool HasRow(const Page& page, std::int32_t id) {
    return std::any_of(page.rows.begin(), page.rows.end(),
                       [id](const FormRow& row) { return row.id == id; });
}

}  // namespace

const std::vector<Page>& Pages() {
    static const std::vector<Page> pages = {
        ApplicationPage(), AccessPage(), DatabasePage(),  WorkgroupPage(), OptionsPage(),
        PicturePage(),     ErrorsPage(), DiagnosisPage(), ProgramPage(),
    };
    return pages;
}

std::size_t PageOfField(std::int32_t number) {
    const std::vector<Page>& pages = Pages();
    const std::int32_t row = RowOfField(number);
    const auto found = std::find_if(pages.begin(), pages.end(),
                                    [row](const Page& page) { return HasRow(page, row); });
    return static_cast<std::size_t>(found - pages.begin());
}

std::int32_t RowOfField(std::int32_t number) {
    for (const KeyListFields& list : {kAccRegList, kDBRegList, kPicRegList, kSysDBRegList}) {
        if (number >= list.first && number < list.first + KeyListFields::kCount) {
            return KeyListRow(list);
        }
    }
    return number;
}

std::int32_t FieldOfRow(std::int32_t row) {
    const std::int32_t field = row >= SecondRow(0) && row < 5000 ? row - SecondRow(0) : row;
    return FindField(field) != nullptr ? field : 0;
}

}  // namespace tarvex
