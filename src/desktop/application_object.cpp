#include "desktop/application_object.h"

#include "desktop/media_files.h"

namespace vantor {

using namespace Qt::StringLiterals;

void ApplicationObject::Activate(const QVariantMap& platform_data) {
  Q_EMIT activated(platform_data.value(u"activation-token"_s).toByteArray());
}

void ApplicationObject::Open(const QStringList& uris, const QVariantMap& platform_data) {
  // One plays at a time.
  const std::optional<QUrl> file = uris.isEmpty() ? std::nullopt : localFile(uris.first());
  if (!file) {
    sendErrorReply(QDBusError::InvalidArgs, u"Only files of this machine can be opened."_s);
    return;
  }
  Q_EMIT fileOpened(*file);
  Activate(platform_data);
}

void ApplicationObject::ActivateAction(const QString& action_name, const QVariantList&,
                                       const QVariantMap& platform_data) {
  const std::optional<Section> section = sectionNamed(action_name);
  if (!section) {
    sendErrorReply(QDBusError::InvalidArgs, u"There is no such action."_s);
    return;
  }
  Q_EMIT sectionChosen(*section);
  Activate(platform_data);
}

}  // namespace vantor
