#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/AppWindows.h"
#include "platform/Clock.h"
#include "platform/Process.h"

namespace tarvex {

/// Stands still at one time until a test changes it.
class FakeClock : public Clock {
public:
    std::u16string now = u"24.12.2004 08:15:00";

    std::uint32_t milliseconds = 0;

    std::u16string GeneralDateTime() const override { return now; }
    std::uint32_t Milliseconds() const override { return milliseconds; }
};

/// Records the command lines it is asked to start, and every other call in `calls`.
class FakeProcess : public Process {
public:
    std::vector<std::u16string> lines;
    mutable std::vector<std::string> calls;
    std::uint32_t result = 4711;
    bool mayAllow = true;                   ///< whether the foreground can be handed on
    bool otherInForeground = false;         ///< whether another program has it
    bool ended = true;                      ///< whether the started program has ended
    std::function<void()> onStart = [] {};  ///< called while a program is started
    std::function<void(std::uint32_t)> onWait = [](std::uint32_t) {};  ///< gets the milliseconds

    std::uint32_t StartMaximised(std::u16string_view commandLine) override {
        lines.emplace_back(commandLine);
        onStart();
        return result;
    }

    bool AllowForeground(std::uint32_t processId) override {
        calls.push_back("allow " + std::to_string(processId));
        return mayAllow;
    }

    bool OtherInForeground() const override {
        calls.emplace_back("foreground");
        return otherInForeground;
    }

    bool HandleMessages(std::uint32_t milliseconds) override {
        calls.push_back("wait " + std::to_string(milliseconds));
        if (calls.size() > 1000) {
            throw std::runtime_error("the wait has no end");
        }
        onWait(milliseconds);
        return ended;
    }
};

/// Records every window; answers error boxes from a queue. `events` names the windows in the order
/// in which they were shown.
class FakeAppWindows : public AppWindows {
public:
    struct HelpCall {
        std::u16string file;
        std::int32_t context;
    };

    std::vector<std::string> events;
    std::vector<DebugWindow> debugWindows;
    std::vector<PictureWindow> pictures;
    std::vector<CaptionBox> boxes;
    std::vector<HelpCall> helpCalls;
    std::vector<int> answers;  ///< taken from the front; 1 when none is left
    bool showsPictures = true;
    std::function<void()> whileShown = [] {};  ///< called while a window shows

    void ShowDebug(const DebugWindow& window) override {
        events.emplace_back("debug");
        debugWindows.push_back(window);
        whileShown();
    }

    bool ShowPicture(const PictureWindow& window) override {
        events.emplace_back("picture");
        pictures.push_back(window);
        whileShown();
        return showsPictures;
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
