#pragma once

#include <QStringList>

namespace vantor::test {

/// Whether Qt says this of its own and nothing comes of it: a list is reset while it prepares a row
/// beyond its end, and the renderer has a clock of its own.
bool isHarmless(const QString& message);

/// Keeps what Qt's message handler is told, on whichever thread, instead of showing it. One at a
/// time.
class HeardMessages {
 public:
  /// Called on any thread; the messages for which it says no are dropped.
  using Wanted = bool (*)(QtMsgType type, const QMessageLogContext& context, const QString& text);

  explicit HeardMessages(Wanted wanted);
  /// They are shown again.
  ~HeardMessages();
  HeardMessages(const HeardMessages&) = delete;
  HeardMessages& operator=(const HeardMessages&) = delete;

  /// Those since the last call, oldest first; any thread.
  QStringList take();

 private:
  const QtMessageHandler previous_;
};

}  // namespace vantor::test
