#include "platform/trace.h"

#include <cxxabi.h>

#include <QHash>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <system_error>
#include <typeinfo>

#include "platform/cancelled.h"

namespace vantor {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(sessionTrace, "vantor.session", QtWarningMsg)
Q_LOGGING_CATEGORY(providerTrace, "vantor.provider", QtWarningMsg)
Q_LOGGING_CATEGORY(storageTrace, "vantor.storage", QtWarningMsg)
Q_LOGGING_CATEGORY(playbackTrace, "vantor.playback", QtWarningMsg)
Q_LOGGING_CATEGORY(recordingTrace, "vantor.recording", QtWarningMsg)
Q_LOGGING_CATEGORY(artworkTrace, "vantor.artwork", QtWarningMsg)

namespace {

struct Keeping {
  std::mutex mutex;
  std::function<void(const QString&)> keep;
};

Keeping& keeping() {
  static Keeping instance;
  return instance;
}

int countOf(const char* tried) {
  static std::mutex mutex;
  static QHash<QByteArray, int> counts;
  const std::lock_guard lock(mutex);
  return ++counts[tried];
}

/// The failure's type, and its number when it has one. What it says of itself may name a file.
QString kindOf(const std::exception& failure) {
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(typeid(failure).name(), nullptr, nullptr, nullptr), &std::free);
  QString kind = QString::fromUtf8(name ? name.get() : typeid(failure).name());
  if (const auto* numbered = dynamic_cast<const NumberedFailure*>(&failure))
    kind += u" %1"_s.arg(numbered->number());
  if (const auto* system = dynamic_cast<const std::system_error*>(&failure))
    kind += u" %1"_s.arg(system->code().value());
  return kind;
}

bool isCancellation(const std::exception& failure) {
  if (dynamic_cast<const Cancelled*>(&failure)) return true;
  const auto* numbered = dynamic_cast<const NumberedFailure*>(&failure);
  return numbered && numbered->isCancellation();
}

}  // namespace

void keepTraces(std::function<void(const QString& line)> keep) {
  const std::lock_guard lock(keeping().mutex);
  keeping().keep = std::move(keep);
}

void Attempt::failed(const std::exception_ptr& failure) const {
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& known) {
    if (!isCancellation(known)) failed(kindOf(known));
  } catch (...) {
    failed(u"an unknown failure"_s);
  }
}

void Attempt::failed(const QString& kind) const {
  const QString line = u"%1: %2, failure %3, after %4 ms"_s.arg(QLatin1String(tried_), kind)
                           .arg(countOf(tried_))
                           .arg(sinceStart_.elapsed());
  qCInfo(category_).noquote() << line;
  const std::lock_guard lock(keeping().mutex);
  if (keeping().keep)
    keeping().keep(QLatin1String(category_().categoryName()) + QLatin1Char(' ') + line);
}

}  // namespace vantor
