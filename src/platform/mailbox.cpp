#include "platform/mailbox.h"

#include <QCoreApplication>

namespace vantor {
namespace {

Mailbox* mainMailbox = nullptr;

/// Before there are threads that could post to it. Never destroyed: some end late.
void makeMainMailbox() {
  if (!mainMailbox) mainMailbox = new Mailbox;
}
Q_COREAPP_STARTUP_FUNCTION(makeMainMailbox)

}  // namespace

Mailbox::~Mailbox() {
  // Undelivered calls were written under the mutex.
  const std::lock_guard lock(mutex_);
  calls_.clear();
}

void Mailbox::post(std::function<void()> call) {
  // Until the event is posted: who destroys the mailbox on another thread waits for all of this.
  const std::lock_guard lock(mutex_);
  calls_.push_back(std::move(call));
  QMetaObject::invokeMethod(this, "deliver", Qt::QueuedConnection);
}

void Mailbox::postToMain(std::function<void()> call) {
  if (QCoreApplication::instance()) mainMailbox->post(std::move(call));
}

void Mailbox::deliver() {
  std::unique_lock lock(mutex_);
  // What a call posts waits for the next round of the event loop; a call that runs an event loop of
  // its own may find the others delivered already.
  for (std::size_t present = calls_.size(); present > 0 && !calls_.empty(); --present) {
    const std::function<void()> call = std::move(calls_.front());
    calls_.pop_front();
    lock.unlock();
    call();
    lock.lock();
  }
}

}  // namespace vantor
