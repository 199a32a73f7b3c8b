#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace vantor {

class AppModel;

/// What the line above the entries says. Main thread only.
class StatusLine final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QString label READ label NOTIFY changed)
  Q_PROPERTY(bool loading READ loading NOTIFY changed)
  Q_PROPERTY(QString count READ count NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)

 public:
  explicit StatusLine(AppModel& model, QObject* parent = nullptr);

  QString label() const;
  bool loading() const;
  QString count() const;
  QString error() const;  // empty: none

 Q_SIGNALS:
  void changed();

 private:
  AppModel& model_;
};

}  // namespace vantor
