#pragma once

#include <QUrl>

namespace vantor {

/// Opens folders and web pages with the desktop's own programs. Main thread only.
class Opener {
 public:
  virtual ~Opener() = default;
  virtual void open(const QUrl& address) = 0;
};

class DesktopOpener final : public Opener {
 public:
  void open(const QUrl& address) override;
};

}  // namespace vantor
