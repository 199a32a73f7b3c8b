#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace vantor {

class Browsing;
class Libraries;
class Session;

/// What the line above the entries says. Main thread only.
class StatusView final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QString label READ label NOTIFY changed)
  Q_PROPERTY(bool loading READ loading NOTIFY changed)
  Q_PROPERTY(QString progress READ progress NOTIFY changed)
  Q_PROPERTY(QString count READ count NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)

 public:
  StatusView(const Session& session, const Browsing& browsing, const Libraries& libraries,
             QObject* parent = nullptr);

  QString label() const;
  /// Whether the section's library is being loaded, or will be once the server was checked.
  bool loading() const;
  /// How far a library has come that is loaded in parts; empty otherwise.
  QString progress() const;
  QString count() const;
  QString error() const;  // empty: none

 Q_SIGNALS:
  void changed();

 private:
  const Session& session_;
  const Browsing& browsing_;
  const Libraries& libraries_;
};

}  // namespace vantor
