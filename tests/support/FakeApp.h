#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/AppWindows.h"
#include "platform/Clock.h"
#include "platform/Process.h"

namespace tarvex {

/// Stands still at one time.
class FakeClock : public Clock {
public:
    std::u16string now = u"24.12.2004 08:15:00";

    std::u16string GeneralDateTime() const override { return now; }
};

/// Records the command lines it is asked to start.
class FakeProcess : public Process {
public:
    std::vector<std::u16string> lines;
    std::uint32_t result = 4711;

    std::uint32_t StartMaximised(std::u16string_view commandLine) override {
        lines.emplace_back(commandLine);
        return result;
    }
};

/// Records every window; answers error boxes from a queue. `events` names the windows in the order
/// in which they were shown.
class FakeAppWindows : public AppWindows {
public:
    struct Picture {
        std::u16string path;
        std::int32_t milliseconds;
        std::int32_t helpContext;
    };
    struct HelpCall {
        std::u16string file;
        std::int32_t context;
    };

    std::vector<std::string> events;
    std::vector<DebugWindow> debugWindows;
    std::vector<Picture> pictures;
    std::vector<CaptionBox> boxes;
    std::vector<HelpCall> helpCalls;
    std::vector<int> answers;                  ///< taken from the front; 1 when none is left
    std::function<void()> whileShown = [] {};  ///< called while a box or a log window shows

    void ShowDebug(const DebugWindow& window) override {
        events.emplace_back("debug");
        debugWindows.push_back(window);
        whileShown();
    }

    void ShowPicture(std::u16string_view path, std::int32_t milliseconds,
                     std::int32_t helpContext) override {
        events.emplace_back("picture");
        pictures.push_back({std::u16string(path), milliseconds, helpContext});
    }

    int ShowCaptionBox(const CaptionBox& box) override {
        events.emplace_back("box");
        boxes.push_back(box);
        whileShown();
        if (answers.empty()) {
            return 1;
        }
        const int answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }

    void ShowHelp(std::u16string_view helpFile, std::int32_t context) override {
        events.emplace_back("help");
        helpCalls.push_back({std::u16string(helpFile), context});
    }
};

}  // namespace tarvex
