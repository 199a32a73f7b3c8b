#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace vantor {

class Browsing;
class Session;

/// What stands in place of a list without entries. Main thread only.
class EmptyState final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString headline READ headline NOTIFY changed)
  Q_PROPERTY(QString explanation READ explanation NOTIFY changed)
  Q_PROPERTY(bool connectOffered READ connectOffered NOTIFY changed)

 public:
  EmptyState(const Session& session, const Browsing& browsing, QObject* parent = nullptr);

  bool shown() const;
  QString headline() const;
  QString explanation() const;
  bool connectOffered() const;

 Q_SIGNALS:
  void changed();

 private:
  const Session& session_;
  const Browsing& browsing_;
};

}  // namespace vantor
