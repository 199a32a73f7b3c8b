#include "artwork/artwork_store.h"

#include <gtest/gtest.h>

#include "platform/worker.h"
#include "support/awaited.h"
#include "support/fake_transport.h"
#include "support/manual_clock.h"
#include "support/picture.h"

namespace vantor::test {
namespace {

QString fileName(int number) {
  return QString::number(number) + u".png"_s;
}

QUrl address(int number) {
  return QUrl(u"http://cdn.example/"_s + fileName(number));
}

/// One request of the store.
using Call = Started<QImage>;

class ArtworkStoreTest : public ::testing::Test {
 protected:
  std::shared_ptr<Call> request(int number) {
    return start<QImage>([target = store.get(), number](std::stop_token stop) {
      return target->image(address(number), stop);
    });
  }
  bool ends(const std::shared_ptr<Call>& call) {
    return eventually([&] { return call->over; });
  }
  std::size_t downloads() const { return transport.exchanges().size(); }
  bool deliver(int number) { return transport.answer(fileName(number), pictureOf(Qt::red)); }
  void fetch(int number) {
    const auto call = request(number);
    deliver(number);
    ASSERT_TRUE(ends(call));
    ASSERT_FALSE(call->value->isNull());
  }

  FakeTransport transport;
  ManualClock clock;
  Worker worker;
  std::unique_ptr<ArtworkStore> store = std::make_unique<ArtworkStore>(transport, clock, worker);
};

TEST_F(ArtworkStoreTest, DownloadsOnceAndRemembers) {
  fetch(1);
  const FakeTransport::Exchange& asked = *transport.exchanges().front();
  EXPECT_EQ(asked.request.address, address(1));
  EXPECT_EQ(asked.request.userAgent, QByteArray());
  EXPECT_EQ(asked.limit, 4'194'304);
  const auto again = request(1);
  EXPECT_TRUE(again->over);
  EXPECT_EQ(again->value->size(), QSize(40, 20));
  EXPECT_EQ(store->cached(address(1)), again->value);
  EXPECT_EQ(downloads(), 1u);
}

TEST_F(ArtworkStoreTest, AnyFailureGivesNoneAndIsTriedAgain) {
  for (const char* body : {"no answer", "", "<html></html>", "\x89PNG\r\n\x1A\n"}) {
    const auto failing = request(1);
    if (body == std::string_view("no answer"))
      transport.fail(fileName(1), HTTPFailure(404));
    else
      transport.answer(fileName(1), body);
    ASSERT_TRUE(ends(failing));
    EXPECT_TRUE(failing->value->isNull());
  }
  fetch(1);
  EXPECT_EQ(downloads(), 5u) << "a failed one gives its slot back";
}

TEST_F(ArtworkStoreTest, AFourthWaitsInStepsForASlot) {
  for (int number = 1; number <= 3; ++number) request(number);
  const auto fourth = request(4);
  const auto sameAsFirst = request(1);
  EXPECT_EQ(downloads(), 3u);
  clock.advance(80ms);
  EXPECT_EQ(downloads(), 3u);
  deliver(1);
  ASSERT_TRUE(eventually([&] { return !store->cached(address(1)).isNull(); }));
  EXPECT_FALSE(sameAsFirst->over);
  clock.advance(79ms);
  EXPECT_EQ(downloads(), 3u);
  clock.advance(1ms);
  EXPECT_EQ(downloads(), 4u);
  EXPECT_TRUE(sameAsFirst->over) << "answered from memory, although no slot was free";
  EXPECT_FALSE(sameAsFirst->value->isNull());
  deliver(4);
  EXPECT_TRUE(ends(fourth));
}

TEST_F(ArtworkStoreTest, CancellingEndsARequestWhereverItIs) {
  const auto unstarted = request(9);
  unstarted->job.cancel();
  std::vector<std::shared_ptr<Call>> calls;
  for (int number = 1; number <= 4; ++number) calls.push_back(request(number));
  const auto first = transport.exchanges().at(1);
  calls[3]->job.cancel();
  settle();
  EXPECT_TRUE(calls[3]->over) << "at once, not at its next step";
  EXPECT_EQ(downloads(), 4u);
  calls[0]->job.cancel();
  settle();
  EXPECT_TRUE(first->cancelled && calls[0]->over && calls[0]->value->isNull());
  request(5);
  EXPECT_EQ(downloads(), 5u) << "its slot is free";

  std::stop_source stop;
  stop.request_stop();
  EXPECT_TRUE(awaited<QImage>(store->image(address(6), stop.get_token())).isNull());
  EXPECT_EQ(downloads(), 5u);

  // AddressSanitizer tells of a worker that is gone when the answer arrives.
  auto own = std::make_unique<Worker>();
  ArtworkStore other(transport, clock, *own);
  const auto answered =
      start<QImage>([&](std::stop_token token) { return other.image(address(7), token); });
  transport.answer(fileName(7), pictureOf(Qt::red));
  answered->job.cancel();
  own.reset();
  settle();
  EXPECT_TRUE(answered->over && answered->value->isNull());
}

TEST_F(ArtworkStoreTest, KeepsTheLastEighty) {
  for (int number = 0; number < 80; ++number) fetch(number);
  EXPECT_TRUE(request(0)->over) << "a use does not make it younger";
  fetch(80);
  EXPECT_TRUE(store->cached(address(0)).isNull());
  EXPECT_FALSE(store->cached(address(1)).isNull());
  EXPECT_FALSE(store->cached(address(80)).isNull());
}

TEST_F(ArtworkStoreTest, DestroyingItLetsItsRequestsEnd) {
  std::vector<std::shared_ptr<Call>> calls;
  for (int number = 1; number <= 4; ++number) calls.push_back(request(number));
  store.reset();
  for (int number = 1; number <= 3; ++number) deliver(number);
  ASSERT_TRUE(ends(calls[0]) && ends(calls[1]) && ends(calls[2]));
  clock.advance(80ms);
  deliver(4);
  EXPECT_TRUE(ends(calls[3]));
}

}  // namespace
}  // namespace vantor::test
