#include "window/views/PreviewWorker_win32.h"

#include <gtest/gtest.h>

#include <functional>

#include "errors/RaisedError.h"
#include "window/preview/PreviewQueue.h"

namespace tarvex {
namespace {

constexpr UINT kHasResult = WM_APP + 1;

/// A path that answers only when the test says so. Belongs to the threads too, which may outlive
/// the test: it is never deleted.
struct Server {
    HANDLE answers = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    volatile LONG asked = 0;
    volatile LONG answered = 0;

    void Ask() {
        InterlockedIncrement(&asked);
        WaitForSingleObject(answers, INFINITE);
        InterlockedIncrement(&answered);
    }
};

PreviewRequest Request(std::u16string_view program) {
    PreviewRequest request;
    request.program = program;
    return request;
}

class PreviewWorkerTest : public testing::Test {
protected:
    PreviewWorkerTest()
        : window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                  nullptr)) {}
    ~PreviewWorkerTest() override {
        SetEvent(server_->answers);
        worker_.reset();
        DestroyWindow(window_);
    }

    /// Runs ask the server when their program is named after it, and give the name as their text.
    void Start() {
        worker_.emplace(window_, kHasResult, [server = server_](const PreviewRequest& request) {
            if (request.program.starts_with(u"Server")) {
                server->Ask();
            }
            if (request.program == u"Fehler") {
                throw RaisedError{53, {}, u"Die Datei fehlt.", {}, 0, 0};
            }
            PreviewResult result;
            result.text = request.program;
            return result;
        });
    }

    /// Lets the window have its messages until it holds, for at most so long.
    bool Until(const std::function<bool()>& holds, DWORD limit = 10'000) {
        const DWORD start = GetTickCount();
        while (!holds()) {
            if (GetTickCount() - start >= limit) {
                return false;
            }
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
                told_ += message.hwnd == window_ && message.message == kHasResult ? 1 : 0;
            }
            Sleep(1);
        }
        return true;
    }

    /// The result that the window is told of; empty when it is not within the time.
    std::u16string Shown(DWORD limit = 10'000) {
        const int before = told_;
        if (!Until([&] { return told_ > before; }, limit)) {
            return {};
        }
        const std::optional<PreviewResult> result = worker_->TakeResult();
        return result ? result->text + result->commandLine : u"nichts";
    }

    bool IsAsked(LONG times = 1) {
        return Until([&] { return server_->asked >= times; });
    }

    Server* const server_ = new Server;
    const HWND window_;
    int told_ = 0;
    std::optional<PreviewWorker> worker_;
};

TEST_F(PreviewWorkerTest, WindowIsToldOfTheResult) {
    Start();
    EXPECT_FALSE(worker_->IsOld());
    worker_->RequestAtOnce(Request(u"A"));
    EXPECT_TRUE(worker_->IsOld());
    EXPECT_EQ(Shown(), u"A");
    EXPECT_FALSE(worker_->IsOld());
    EXPECT_FALSE(worker_->TakeResult().has_value());
}

TEST_F(PreviewWorkerTest, OnlyTheLastOfSeveralRequestsIsWorkedOnAfterTheRest) {
    Start();
    const DWORD start = GetTickCount();
    for (const std::u16string_view name : {u"A", u"B", u"C"}) {
        worker_->Request(Request(name));
    }
    EXPECT_EQ(Shown(), u"C");
    EXPECT_GE(GetTickCount() - start, PreviewQueue::kRest - 20);
    EXPECT_EQ(Shown(200), u"");
}

TEST_F(PreviewWorkerTest, WindowGoesOnWhileARunWaits) {
    Start();
    worker_->RequestAtOnce(Request(u"Server"));
    ASSERT_TRUE(IsAsked());
    const DWORD start = GetTickCount();
    worker_->Request(Request(u"B"));
    EXPECT_TRUE(worker_->IsOld());
    EXPECT_FALSE(worker_->IsStuck());
    EXPECT_FALSE(worker_->TakeResult().has_value());
    EXPECT_LT(GetTickCount() - start, 100u);
}

TEST_F(PreviewWorkerTest, LatestRequestWins) {
    Start();
    worker_->RequestAtOnce(Request(u"Server"));
    ASSERT_TRUE(IsAsked());
    worker_->RequestAtOnce(Request(u"B"));
    SetEvent(server_->answers);
    EXPECT_EQ(Shown(), u"B");
    EXPECT_TRUE(Until([&] { return server_->answered == 1; }));
    EXPECT_EQ(Shown(200), u"");
}

TEST_F(PreviewWorkerTest, RunThatIsStuckIsLeftBehind) {
    Start();
    worker_->RequestAtOnce(Request(u"Server"));
    ASSERT_TRUE(IsAsked());
    EXPECT_TRUE(Until([&] { return worker_->IsStuck(); }));
    worker_->RequestAtOnce(Request(u"B"));
    EXPECT_EQ(Shown(), u"B");
    EXPECT_FALSE(worker_->IsStuck());
    EXPECT_EQ(server_->answered, 0);
    // What it finds at last is not shown, and the worker goes on.
    SetEvent(server_->answers);
    EXPECT_TRUE(Until([&] { return server_->answered == 1; }));
    EXPECT_EQ(Shown(200), u"");
    worker_->RequestAtOnce(Request(u"C"));
    EXPECT_EQ(Shown(), u"C");
}

TEST_F(PreviewWorkerTest, EndDoesNotWaitForARunAndNobodyIsToldOfIt) {
    Start();
    worker_->RequestAtOnce(Request(u"Server"));
    ASSERT_TRUE(IsAsked());
    const DWORD start = GetTickCount();
    worker_.reset();
    EXPECT_LT(GetTickCount() - start, 100u);
    SetEvent(server_->answers);
    EXPECT_TRUE(Until([&] { return server_->answered == 1; }));
    EXPECT_FALSE(Until([&] { return told_ > 0; }, 200));
}

TEST_F(PreviewWorkerTest, ResultIsWaitedForNoLongerThanTheLimit) {
    Start();
    DWORD start = GetTickCount();
    worker_->RequestAtOnce(Request(u"A"));
    EXPECT_EQ(worker_->ResultWithin(10'000)->text, u"A");
    EXPECT_LT(GetTickCount() - start, 5000u);
    worker_->RequestAtOnce(Request(u"Server"));
    start = GetTickCount();
    EXPECT_FALSE(worker_->ResultWithin(100).has_value());
    EXPECT_LT(GetTickCount() - start, 1000u);
}

TEST_F(PreviewWorkerTest, RunThatFailsSaysSo) {
    Start();
    worker_->RequestAtOnce(Request(u"Fehler"));
    EXPECT_EQ(Shown(), u"Die Vorschau ist nicht möglich: Die Datei fehlt.");
    worker_->RequestAtOnce(Request(u"B"));
    EXPECT_EQ(Shown(), u"B");
}

TEST_F(PreviewWorkerTest, ErrorsOfTwoThreadsDoNotMeet) {
    worker_.emplace(window_, kHasResult, [](const PreviewRequest& request) {
        PreviewResult result;
        for (int i = 0; i < 2000; ++i) {
            try {
                throw RaisedError{i, {}, request.program, {}, 0, 0};
            } catch (...) {
                const RaisedError error = CurrentError();
                result.text = error.number == i ? error.description : u"falsch";
            }
        }
        return result;
    });
    worker_->RequestAtOnce(Request(u"Faden"));
    for (int i = 0; i < 2000; ++i) {
        try {
            throw RaisedError{-i, {}, u"Fenster", {}, 0, 0};
        } catch (...) {
            ASSERT_EQ(CurrentError().number, -i);
        }
    }
    EXPECT_EQ(Shown(), u"Faden");
}

}  // namespace
}  // namespace tarvex
