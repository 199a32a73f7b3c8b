#include "artwork/artwork_store.h"

#include <QHash>
#include <QQueue>

#include "artwork/thumbnail.h"
#include "net/http_transport.h"
#include "platform/cancelled.h"
#include "platform/slot.h"
#include "platform/trace.h"
#include "platform/worker.h"

namespace vantor {

struct ArtworkStore::State {
  HTTPTransport& transport;
  Clock& clock;
  Worker& worker;
  QHash<QUrl, QImage> images;
  QQueue<QUrl> order;  // in which they were stored; an address may be there more than once
  int active = 0;      // downloads

  void store(const QUrl& address, const QImage& image) {
    images.insert(address, image);
    order.enqueue(address);
    while (order.size() > capacity) images.remove(order.dequeue());
  }
};

ArtworkStore::ArtworkStore(HTTPTransport& transport, Clock& clock, Worker& worker)
    : state_(new State{transport, clock, worker, {}, {}}) {}

ArtworkStore::~ArtworkStore() = default;

QImage ArtworkStore::cached(const QUrl& address) const {
  return state_->images.value(address);
}

QCoro::Task<QImage> ArtworkStore::image(const QUrl& address, std::stop_token token) {
  return load(state_, address, token);
}

QCoro::Task<QImage> ArtworkStore::load(std::shared_ptr<State> state, QUrl address,
                                       std::stop_token token) {
  QImage image = state->images.value(address);
  if (!image.isNull()) co_return image;
  while (state->active >= downloadSlots) {
    const QCoro::Task<> pause = state->clock.sleep(waitStep, token);
    co_await pause;
    if (token.stop_requested()) co_return QImage();
    image = state->images.value(address);
    if (!image.isNull()) co_return image;
  }
  if (token.stop_requested()) co_return QImage();
  const Slot slot(state->active);
  const Attempt attempt(artworkTrace, "fetching a picture");
  try {
    HTTPRequest request;
    request.address = address;
    const QCoro::Task<QByteArray> fetched = state->transport.fetch(request, bodyLimit, token);
    QByteArray body = co_await fetched;
    const auto decoded = state->worker.run([body = std::move(body), token] {
      throwIfStopped(token);
      return decodeThumbnail(body);
    });
    image = co_await decoded;
  } catch (...) {
    // All failures look the same: there is no picture.
    attempt.failed();
  }
  if (token.stop_requested()) co_return QImage();
  if (!image.isNull()) state->store(address, image);
  co_return image;
}

}  // namespace vantor
