#include "platform/win32/Win32Cleanup.h"

#include <gtest/gtest.h>

#include "platform/win32/Handles.h"

namespace tarvex {

namespace {

using UniqueThread = UniqueHandle<HANDLE, CloseHandle>;

UniqueThread Start(LPTHREAD_START_ROUTINE work, TemporaryGate& gate) {
    return UniqueThread(CreateThread(nullptr, 0, work, &gate, 0, nullptr));
}

DWORD WINAPI CloseGate(void* gate) {
    return static_cast<TemporaryGate*>(gate)->Close() ? 1 : 0;
}

DWORD WINAPI EnterGate(void* gate) {
    static_cast<TemporaryGate*>(gate)->Enter();
    return 1;
}

TEST(TemporaryGateTest, EndOfTheProgramWaitsForTheLastTemporaryFile) {
    TemporaryGate gate;
    gate.Enter();
    const UniqueThread closing = Start(CloseGate, gate);
    EXPECT_EQ(WaitForSingleObject(closing.Get(), 200), DWORD{WAIT_TIMEOUT});
    gate.Leave();
    ASSERT_EQ(WaitForSingleObject(closing.Get(), 3000), WAIT_OBJECT_0);
    DWORD none = 0;
    GetExitCodeThread(closing.Get(), &none);
    EXPECT_EQ(none, 1U);
}

TEST(TemporaryGateTest, WithoutTemporaryFilesNobodyWaits) {
    TemporaryGate gate;
    gate.Enter();
    gate.Leave();
    const DWORD start = GetTickCount();
    EXPECT_TRUE(gate.Close());
    EXPECT_LT(GetTickCount() - start, 1000U);
}

TEST(TemporaryGateTest, AfterAnInterruptionNoTemporaryFileComesIntoBeing) {
    TemporaryGate gate;
    ASSERT_TRUE(gate.Close());
    const UniqueThread entering = Start(EnterGate, gate);
    EXPECT_EQ(WaitForSingleObject(entering.Get(), 200), DWORD{WAIT_TIMEOUT});
    TerminateThread(entering.Get(), 0);
}

}  // namespace

}  // namespace tarvex
