#pragma once

#include <QMutex>
#include <QStringList>
#include <utility>

namespace vantor::test {

/// Whether Qt says this of its own and nothing comes of it: a list is reset while it prepares a row
/// beyond its end, and the renderer has a clock of its own.
inline bool isHarmless(const QString& message) {
  for (const char* begin : {"DelegateModel::cancel", "QUnifiedTimer: animation driver",
                            "QUnifiedTimer::stopAnimationDriver"})
    if (message.startsWith(QLatin1String(begin))) return true;
  return false;
}

/// Keeps what Qt's message handler is told, on whichever thread, instead of showing it. One at a
/// time.
class HeardMessages {
 public:
  /// Called on any thread; the messages for which it says no are dropped.
  using Wanted = bool (*)(QtMsgType type, const QMessageLogContext& context, const QString& text);

  explicit HeardMessages(Wanted wanted) : previous_(qInstallMessageHandler(hear)) {
    const QMutexLocker turn(&hearing_);
    wanted_ = wanted;
    heard_.clear();
  }
  /// They are shown again.
  ~HeardMessages() {
    qInstallMessageHandler(previous_);
    const QMutexLocker turn(&hearing_);
    wanted_ = nullptr;
  }
  HeardMessages(const HeardMessages&) = delete;
  HeardMessages& operator=(const HeardMessages&) = delete;

  /// Those since the last call, oldest first; any thread.
  QStringList take() {
    const QMutexLocker turn(&hearing_);
    return std::exchange(heard_, {});
  }

 private:
  static void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QMutexLocker turn(&hearing_);
    if (wanted_ && wanted_(type, context, text)) heard_.append(text);
  }

  // Threads that no test waits for may say something at any time.
  inline static QMutex hearing_;
  inline static Wanted wanted_ = nullptr;
  inline static QStringList heard_;
  const QtMessageHandler previous_;
};

}  // namespace vantor::test
