#include "provider/guide_loader.h"

#include <gtest/gtest.h>

#include "platform/worker.h"
#include "support/awaited.h"
#include "support/fake_transport.h"
#include "support/manual_clock.h"

namespace vantor::test {
namespace {

const QString guideRequest = u"get_short_epg"_s;
const QByteArray oneProgramme =
    R"({"epg_listings":[{"title":"x y","start_timestamp":1,"stop_timestamp":2}]})";

MediaItem channel(int number) {
  MediaItem item;
  item.providerID = QString::number(number);
  item.id = entryID(LibraryKind::live, item.providerID);
  return item;
}

/// One caller of the loader.
using Call = Started<GuideEntries>;

class GuideLoaderTest : public ::testing::Test {
 protected:
  std::shared_ptr<Call> load(int number) {
    return start<GuideEntries>([target = loader.get(), number](std::stop_token stop) {
      return target->load(channel(number), stop);
    });
  }
  bool ends(const std::shared_ptr<Call>& call) {
    return eventually([&] { return call->over; });
  }
  int requests() const { return transport.requests(guideRequest); }

  FakeTransport transport;
  ManualClock clock;
  Worker worker;
  const ProviderAccount account =
      ProviderAccount::validated(QString(), u"http://tv.example"_s, u"u"_s, u"p"_s);
  std::unique_ptr<GuideLoader> loader =
      std::make_unique<GuideLoader>(ProviderClient(account, transport, worker), clock);
};

TEST_F(GuideLoaderTest, CallersOfOneChannelShareItsRequestAndItsAnswerForFiveMinutes) {
  const auto first = load(1);
  const auto second = load(1);
  EXPECT_EQ(requests(), 1);
  EXPECT_EQ(transport.exchanges().front()->request.address.query(),
            u"username=u&password=p&action=get_short_epg&stream_id=1&limit=8"_s);
  transport.answer(guideRequest, oneProgramme);
  ASSERT_TRUE(ends(first) && ends(second));
  EXPECT_EQ(first->value->value(0).id, u"live:1:0"_s);
  EXPECT_EQ(second->value, first->value);
  clock.advance(299s);
  EXPECT_TRUE(load(1)->over);
  EXPECT_EQ(requests(), 1);
  clock.advance(1s);
  const auto again = load(1);
  transport.answer(guideRequest, "{}");
  ASSERT_TRUE(ends(again));
  EXPECT_TRUE(again->value->isEmpty());
  EXPECT_TRUE(load(1)->over) << "an empty guide is an answer as well";
  EXPECT_EQ(requests(), 2);
}

TEST_F(GuideLoaderTest, TwoRequestsRunAtATime) {
  const auto first = load(1);
  load(2);
  const auto third = load(3);
  EXPECT_EQ(requests(), 2);
  transport.fail(guideRequest, HTTPFailure(500));
  ASSERT_TRUE(ends(first));
  EXPECT_NE(first->failure, nullptr);
  EXPECT_EQ(requests(), 2) << "the slot is looked for in steps";
  clock.advance(100ms);
  EXPECT_EQ(requests(), 3);
  const auto retried = load(1);
  EXPECT_EQ(requests(), 3) << "a failure is not kept, and waits its turn";
  transport.answer(guideRequest, oneProgramme);
  transport.answer(guideRequest, oneProgramme);
  ASSERT_TRUE(ends(third));
  clock.advance(100ms);
  EXPECT_EQ(requests(), 4);
  EXPECT_FALSE(retried->over);
}

TEST_F(GuideLoaderTest, RefusesTheThirtyThirdButLetsCallersJoin) {
  for (int number = 0; number < 32; ++number) load(number);
  EXPECT_TRUE(load(32)->cancelled);
  const auto joined = load(31);
  EXPECT_FALSE(joined->over);
  EXPECT_EQ(requests(), 2);
  transport.always(guideRequest, oneProgramme);
  transport.answer(guideRequest, oneProgramme);
  transport.answer(guideRequest, oneProgramme);
  EXPECT_TRUE(eventually([&] {
    clock.advance(100ms);
    return joined->over;
  }));
  EXPECT_FALSE(load(32)->cancelled);
}

TEST_F(GuideLoaderTest, ACallerThatGivesUpLeavesTheLoadToTheOthers) {
  const auto first = load(1);
  const auto second = load(1);
  first->job.cancel();
  settle();
  EXPECT_TRUE(first->cancelled);
  EXPECT_FALSE(transport.exchanges().front()->cancelled);
  transport.answer(guideRequest, oneProgramme);
  ASSERT_TRUE(ends(second));
  EXPECT_EQ(second->value->size(), 1);
  EXPECT_TRUE(load(1)->over);
  EXPECT_EQ(requests(), 1);

  const auto unstarted = load(2);
  unstarted->job.cancel();
  settle();
  const auto late = load(2);
  EXPECT_EQ(requests(), 2) << "the abandoned load serves who comes next";
  transport.answer(guideRequest, oneProgramme);
  EXPECT_TRUE(ends(late));
}

TEST_F(GuideLoaderTest, ItsEndEndsEverything) {
  std::vector<std::shared_ptr<Call>> calls;
  for (int number = 1; number < 5; ++number) calls.push_back(load(number));
  const auto request = transport.exchanges().back();
  loader.reset();
  settle();
  for (const auto& call : calls) EXPECT_TRUE(call->cancelled);
  EXPECT_TRUE(request->cancelled);
  clock.advance(1s);
  EXPECT_EQ(requests(), 2) << "those that waited never ask";
  EXPECT_EQ(clock.waiting(), 0u);
}

}  // namespace
}  // namespace vantor::test
