#include "window/preview/PcChoice.h"

#include <utility>

#include "launch/PathHelpers.h"
#include "simulation/PcSelection.h"
#include "window/document/FileNames.h"
#include "window/form/BoxTexts.h"

namespace tarvex {

std::vector<std::u16string> PcChoice::Lines() const {
    std::vector<std::u16string> lines = {u"dieser PC"};
    for (const std::u16string& path : pcs_) {
        lines.push_back(StemOf(path));
    }
    lines.emplace_back(u"PC-Beschreibungen wählen…");
    return lines;
}

bool PcChoice::Select(std::int32_t line) {
    const auto last = static_cast<std::int32_t>(pcs_.size()) + 1;
    if (line == last) {
        return AskForFolder();
    }
    if (line < 0 || line > last || line == selected_) {
        return false;
    }
    selected_ = line;
    return true;
}

std::u16string PcChoice::Pc() const {
    return selected_ == 0 ? std::u16string() : pcs_.at(static_cast<std::size_t>(selected_) - 1);
}

std::u16string PcChoice::Name() const {
    return selected_ == 0 ? u"diesem PC" : StemOf(Pc());
}

bool PcChoice::AskForFolder() {
    const std::u16string folder =
        dialogs_.ChooseFolder(u"Ordner mit PC-Beschreibungen (*.pc) wählen", folder_);
    if (folder.empty()) {
        return false;
    }
    const PcSelection selection = SelectPcs(store_, folders_, {AddSep(folder)}, {});
    if (!selection.problems.empty()) {
        TellUser(dialogs_, BoxIcon::Warning,
                 u"Nicht alle PC-Beschreibungen sind verwendbar:\n\n" +
                     ProblemList(selection.problems, {}));
    }
    if (selection.pcs.empty()) {
        return false;
    }
    const std::u16string before = Pc();
    folder_ = folder;
    pcs_.clear();
    for (const SelectedPc& pc : selection.pcs) {
        pcs_.push_back(pc.path);
    }
    selected_ = 1;
    return Pc() != before;
}

}  // namespace tarvex
