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
    const QMutexLocker turn(&hearing);
    isWanted = wanted;
    heard.clear();
  }
  /// They are shown again.
  ~HeardMessages() {
    qInstallMessageHandler(previous_);
    const QMutexLocker turn(&hearing);
    isWanted = nullptr;
  }
  HeardMessages(const HeardMessages&) = delete;
  HeardMessages& operator=(const HeardMessages&) = delete;

  /// Those since the last call, oldest first; any thread.
  QStringList take() {
    const QMutexLocker turn(&hearing);
    return std::exchange(heard, {});
  }

 private:
  static void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QMutexLocker turn(&hearing);
    if (isWanted && isWanted(type, context, text)) heard.append(text);
  }

  // Threads that no test waits for may say something at any time.
  inline static QMutex hearing;
  inline static Wanted isWanted = nullptr;
  inline static QStringList heard;
  const QtMessageHandler previous_;
};

}  // namespace vantor::test
