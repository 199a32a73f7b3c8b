#pragma once

#include <QMetaMethod>
#include <QObject>
#include <functional>

#include "core/app_model.h"

namespace vantor::test {

/// Hears every signal of a model and its topics, which outlives it.
class ModelSignals final : public QObject {
  Q_OBJECT

 public:
  using Hear = std::function<void(const QByteArray& signal)>;

  ModelSignals(const AppModel& model, Hear hear) : hear_(std::move(hear)) {
    const QMetaMethod heard = staticMetaObject.method(staticMetaObject.indexOfSlot("heard()"));
    for (const QObject* topic : std::initializer_list<const QObject*>{
             &model, &model.session(), &model.libraries(), &model.record(), &model.browsing(),
             &model.guide(), &model.details()}) {
      const QMetaObject& type = *topic->metaObject();
      for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        if (type.method(i).methodType() == QMetaMethod::Signal)
          connect(topic, type.method(i), this, heard);
    }
  }

 private Q_SLOTS:
  void heard() { hear_(sender()->metaObject()->method(senderSignalIndex()).name()); }

 private:
  const Hear hear_;
};

}  // namespace vantor::test
