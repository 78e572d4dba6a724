#include "window/views/PreviewWorker_win32.h"

#include <utility>

#include "configurator/FileTexts.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32TextCodec.h"
#include "window/preview/PreviewQueue.h"
#include "window/preview/PreviewRun.h"

namespace tarvex {

namespace {

/// More runs than these are not left behind: the next request waits until one of them ends.
constexpr int kMostThreads = 4;

class Lock {
public:
    explicit Lock(CRITICAL_SECTION& section) : section_(section) { EnterCriticalSection(&section); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION& section_;
};

PreviewResult Work(const PreviewWorker::Run& run, const PreviewRequest& request) {
    try {
        return run(request);
    } catch (...) {
        PreviewResult failed;
        failed.commandLine = u"Die Vorschau ist nicht möglich: " + CaughtText();
        return failed;
    }
}

}  // namespace

/// What the threads have in common. Belongs to all of them: it goes with the last one.
struct PreviewWorker::Shared {
    Shared(HWND toTell, UINT with, Run theRun)
        : window(toTell), message(with), run(std::move(theRun)) {
        InitializeCriticalSection(&section);
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() {
        CloseHandle(event);
        CloseHandle(finished);
        DeleteCriticalSection(&section);
    }

    void Release() {
        if (InterlockedDecrement(&references) == 0) {
            delete this;
        }
    }

    /// Inside the section.
    void StartThread() {
        InterlockedIncrement(&references);
        const HANDLE thread = CreateThread(nullptr, 0, ThreadMain, this, 0, nullptr);
        if (thread == nullptr) {
            InterlockedDecrement(&references);  // the next request tries it again
            return;
        }
        CloseHandle(thread);
        ++threads;
        ++idle;
    }

    static DWORD WINAPI ThreadMain(void* shared) {
        static_cast<Shared*>(shared)->WorkUntilClosed();
        static_cast<Shared*>(shared)->Release();
        return 0;
    }

    void WorkUntilClosed() {
        while (const std::optional<PreviewJob> job = NextJob()) {
            PreviewResult result = Work(run, job->request);
            const Lock lock(section);
            if (queue.Finish(job->number, std::move(result))) {
                SetEvent(finished);
                if (window != nullptr && !closed) {
                    PostMessageW(window, message, 0, 0);
                }
            }
            if (idle > 0) {
                --threads;  // another one took its place
                return;
            }
            ++idle;
        }
    }

    /// Waits for it; nothing when there will be none any more.
    std::optional<PreviewJob> NextJob() {
        for (;;) {
            DWORD wait = 0;
            {
                const Lock lock(section);
                if (closed) {
                    SetEvent(event);  // for the next thread
                    return std::nullopt;
                }
                const std::uint32_t now = GetTickCount();
                if (std::optional<PreviewJob> job = queue.Take(now)) {
                    --idle;
                    return job;
                }
                wait = queue.WaitTime(now);
            }
            WaitForSingleObject(event, wait);
        }
    }

    CRITICAL_SECTION section{};                                      // guards what follows it
    HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);     // there may be a job
    HANDLE finished = CreateEventW(nullptr, FALSE, FALSE, nullptr);  // there may be a result
    LONG references = 1;
    PreviewQueue queue;
    int threads = 0;
    int idle = 0;  // threads that wait for a job
    bool closed = false;

    const HWND window;
    const UINT message;
    const Run run;
};

PreviewWorker::PreviewWorker(HWND window, UINT message, Run run)
    : shared_(new Shared(window, message, std::move(run))) {}

PreviewWorker::~PreviewWorker() {
    {
        const Lock lock(shared_->section);
        shared_->closed = true;
        SetEvent(shared_->event);
    }
    shared_->Release();
}

template <class Enter>
void PreviewWorker::Put(Enter enter) {
    const Lock lock(shared_->section);
    enter(shared_->queue, GetTickCount());
    if (shared_->idle == 0 && shared_->threads < kMostThreads) {
        shared_->StartThread();
    }
    SetEvent(shared_->event);
}

void PreviewWorker::Request(PreviewRequest request) {
    Put([&request](PreviewQueue& queue, std::uint32_t now) { queue.Put(std::move(request), now); });
}

void PreviewWorker::RequestAtOnce(PreviewRequest request) {
    Put([&request](PreviewQueue& queue, std::uint32_t now) {
        queue.PutAtOnce(std::move(request), now);
    });
}

std::optional<PreviewResult> PreviewWorker::TakeResult() {
    const Lock lock(shared_->section);
    return shared_->queue.TakeResult();
}

std::optional<PreviewResult> PreviewWorker::ResultWithin(DWORD limit) {
    const DWORD start = GetTickCount();
    for (;;) {
        std::optional<PreviewResult> result = TakeResult();
        const DWORD passed = GetTickCount() - start;
        if (result || passed >= limit) {
            return result;
        }
        WaitForSingleObject(shared_->finished, limit - passed);
    }
}

bool PreviewWorker::IsOld() const {
    const Lock lock(shared_->section);
    return shared_->queue.IsOld();
}

bool PreviewWorker::IsStuck() const {
    const Lock lock(shared_->section);
    return shared_->queue.IsStuck(GetTickCount());
}

PreviewResult RunSystemPreview(const PreviewRequest& request) {
    Win32FileStore store;
    const SingleByteTextCodec codec;
    const std::unique_ptr<ThisPc> pc = OpenThisPc();
    PreviewServices services{store, codec, pc.get()};
    return RunPreview(request, services);
}

}  // namespace tarvex
