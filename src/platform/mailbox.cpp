#include "platform/mailbox.h"

#include <QCoreApplication>
#include <memory>

namespace vantor {

void Mailbox::post(std::function<void()> call) {
  {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
  }
  QMetaObject::invokeMethod(this, "deliver", Qt::QueuedConnection);
}

void Mailbox::postToMain(std::function<void()> call) {
  static Mailbox* const mailbox = [] {
    // Never destroyed: threads that end late still post to it.
    auto* made = new Mailbox;
    made->moveToThread(QCoreApplication::instance()->thread());
    return made;
  }();
  if (QCoreApplication::instance()) mailbox->post(std::move(call));
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
