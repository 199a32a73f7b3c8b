#pragma once

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QString>
#include <exception>
#include <functional>

namespace vantor {

// Silent until they are asked for: by --verbose, or by Qt's QT_LOGGING_RULES ("vantor.*=true").
Q_DECLARE_LOGGING_CATEGORY(sessionTrace)    // vantor.session
Q_DECLARE_LOGGING_CATEGORY(providerTrace)   // vantor.provider
Q_DECLARE_LOGGING_CATEGORY(storageTrace)    // vantor.storage
Q_DECLARE_LOGGING_CATEGORY(playbackTrace)   // vantor.playback
Q_DECLARE_LOGGING_CATEGORY(recordingTrace)  // vantor.recording
Q_DECLARE_LOGGING_CATEGORY(artworkTrace)    // vantor.artwork

/// Where failures' lines go besides the log, from any thread; nowhere with an empty function. When
/// the call returns nobody is in the function before it.
void keepTraces(std::function<void(const QString& line)> keep);

/// A failure that has a number: a status, an error code.
class NumberedFailure {
 public:
  virtual int number() const noexcept = 0;
  virtual bool isCancellation() const noexcept { return false; }

 protected:
  ~NumberedFailure() = default;
};

/// Something whose failure nobody may hear of, or only in words for everyone. Any thread.
class Attempt {
 public:
  using Category = const QLoggingCategory& (*)();

  /// `tried` is the same for every entry, address, file and user; it names none of them.
  Attempt(Category category, const char* tried) : category_(category), tried_(tried) {
    sinceStart_.start();
  }

  /// Leaves one line in the log: what was tried, the kind of the failure and its number, how often
  /// it has failed in this run, and after how long. None for what was cancelled.
  void failed(const std::exception_ptr& failure = std::current_exception()) const;

  /// The same for a failure that is no exception. `kind` names no source, entry or file.
  void failed(const QString& kind) const;

 private:
  Category category_;
  const char* tried_;
  QElapsedTimer sinceStart_;
};

}  // namespace vantor
