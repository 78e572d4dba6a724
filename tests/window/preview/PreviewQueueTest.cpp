#include "window/preview/PreviewQueue.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

PreviewRequest Request(std::u16string_view name) {
    PreviewRequest request;
    request.program = name;
    return request;
}

PreviewResult Result(std::u16string_view text) {
    PreviewResult result;
    result.text = text;
    return result;
}

constexpr std::uint32_t kNow = 10'000;

class PreviewQueueTest : public testing::Test {
protected:
    /// The name of the request that is handed out; empty: none.
    std::u16string Take(std::uint32_t now) {
        const std::optional<PreviewJob> job = queue_.Take(now);
        number_ = job ? job->number : 0;
        return job ? job->request.program : std::u16string();
    }

    PreviewQueue queue_;
    std::int32_t number_ = 0;  // of the job taken last
};

TEST_F(PreviewQueueTest, NothingIsToBeDoneBeforeTheFirstRequest) {
    EXPECT_EQ(queue_.WaitTime(kNow), PreviewQueue::kForever);
    EXPECT_EQ(Take(kNow), u"");
    EXPECT_FALSE(queue_.IsOld());
    EXPECT_FALSE(queue_.IsStuck(kNow));
    EXPECT_FALSE(queue_.TakeResult().has_value());
}

TEST_F(PreviewQueueTest, RequestIsHandedOutOnceAfterTheRest) {
    queue_.Put(Request(u"A"), kNow);
    EXPECT_TRUE(queue_.IsOld());
    EXPECT_EQ(queue_.WaitTime(kNow + 100), 400u);
    EXPECT_EQ(Take(kNow + 499), u"");
    EXPECT_EQ(queue_.WaitTime(kNow + 500), 0u);
    EXPECT_EQ(Take(kNow + 500), u"A");
    EXPECT_EQ(Take(kNow + 900), u"");
    EXPECT_EQ(queue_.WaitTime(kNow + 900), PreviewQueue::kForever);
}

TEST_F(PreviewQueueTest, EveryNewRequestBeginsTheRestAnew) {
    queue_.Put(Request(u"A"), kNow);
    queue_.Put(Request(u"B"), kNow + 300);
    EXPECT_EQ(Take(kNow + 799), u"");
    EXPECT_EQ(Take(kNow + 800), u"B");
}

TEST_F(PreviewQueueTest, RequestAtOnceDoesNotRest) {
    queue_.Put(Request(u"A"), kNow);
    queue_.PutAtOnce(Request(u"B"), kNow + 10);
    EXPECT_EQ(Take(kNow + 10), u"B");
}

TEST_F(PreviewQueueTest, ResultOfTheLatestRequestIsShownOnce) {
    queue_.PutAtOnce(Request(u"A"), kNow);
    Take(kNow);
    EXPECT_TRUE(queue_.IsOld());
    EXPECT_TRUE(queue_.Finish(number_, Result(u"a")));
    EXPECT_FALSE(queue_.IsOld());
    EXPECT_EQ(queue_.TakeResult()->text, u"a");
    EXPECT_FALSE(queue_.TakeResult().has_value());
}

TEST_F(PreviewQueueTest, ResultOfAnOlderRequestIsDropped) {
    queue_.PutAtOnce(Request(u"A"), kNow);
    Take(kNow);
    queue_.Put(Request(u"B"), kNow + 100);
    EXPECT_FALSE(queue_.Finish(number_, Result(u"a")));
    EXPECT_FALSE(queue_.TakeResult().has_value());
    EXPECT_TRUE(queue_.IsOld());
    EXPECT_EQ(Take(kNow + 600), u"B");
    EXPECT_TRUE(queue_.Finish(number_, Result(u"b")));
    EXPECT_EQ(queue_.TakeResult()->text, u"b");
}

TEST_F(PreviewQueueTest, OneRequestIsWorkedOnAtATime) {
    queue_.PutAtOnce(Request(u"A"), kNow);
    Take(kNow);
    const std::int32_t first = number_;
    queue_.PutAtOnce(Request(u"B"), kNow + 100);
    EXPECT_EQ(Take(kNow + 100), u"");
    EXPECT_EQ(queue_.WaitTime(kNow + 100), PreviewQueue::kStuck - 100);
    queue_.Finish(first, Result(u"a"));
    EXPECT_EQ(queue_.WaitTime(kNow + 200), 0u);
    EXPECT_EQ(Take(kNow + 200), u"B");
}

TEST_F(PreviewQueueTest, NobodyWaitsForARunThatIsStuck) {
    queue_.PutAtOnce(Request(u"A"), kNow);
    Take(kNow);
    const std::int32_t first = number_;
    EXPECT_FALSE(queue_.IsStuck(kNow + 2999));
    EXPECT_TRUE(queue_.IsStuck(kNow + 3000));
    queue_.PutAtOnce(Request(u"B"), kNow + 3000);
    EXPECT_EQ(Take(kNow + 3000), u"B");
    EXPECT_FALSE(queue_.IsStuck(kNow + 3001));
    // The run that was left behind neither shows nor ends the newer one.
    EXPECT_FALSE(queue_.Finish(first, Result(u"a")));
    queue_.PutAtOnce(Request(u"C"), kNow + 3100);
    EXPECT_EQ(Take(kNow + 3100), u"");
    EXPECT_TRUE(queue_.IsOld());
}

TEST_F(PreviewQueueTest, ClockMayBeginAgain) {
    const std::uint32_t late = 0xFFFFFF00;
    queue_.Put(Request(u"A"), late);
    EXPECT_EQ(Take(late + 10), u"");
    EXPECT_EQ(Take(late + 499), u"");
    EXPECT_EQ(Take(late + 500), u"A");
    EXPECT_FALSE(queue_.IsStuck(late + 600));
}

}  // namespace
}  // namespace tarvex
