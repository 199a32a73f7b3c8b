#include "support/heard_messages.h"

#include <QMutex>
#include <utility>

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

// Threads that no test waits for may say something at any time.
QMutex hearing;
HeardMessages::Wanted wantedMessages = nullptr;
QStringList heardMessages;

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  const QMutexLocker turn(&hearing);
  if (wantedMessages && wantedMessages(type, context, text)) heardMessages.append(text);
}

}  // namespace

bool isHarmless(const QString& message) {
  for (const auto begin : {"DelegateModel::cancel"_L1, "QUnifiedTimer: animation driver"_L1,
                           "QUnifiedTimer::stopAnimationDriver"_L1})
    if (message.startsWith(begin)) return true;
  return false;
}

HeardMessages::HeardMessages(Wanted wanted) : previous_(qInstallMessageHandler(hear)) {
  const QMutexLocker turn(&hearing);
  wantedMessages = wanted;
  heardMessages.clear();
}

HeardMessages::~HeardMessages() {
  qInstallMessageHandler(previous_);
  const QMutexLocker turn(&hearing);
  wantedMessages = nullptr;
}

QStringList HeardMessages::take() {
  const QMutexLocker turn(&hearing);
  return std::exchange(heardMessages, {});
}

}  // namespace vantor::test
