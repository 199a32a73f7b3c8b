#include "ui/sign_in/unread_password.h"

#include <private/qaccessiblequickitem_p.h>
#include <QAccessible>
#include <QQuickItem>

namespace vantor {
namespace {

/// A field that shows of a password what the screen shows. Qt takes the name away, too, from
/// whatever says that it edits one.
class TextFieldAccessible final : public QAccessibleQuickItem {
 public:
  using QAccessibleQuickItem::QAccessibleQuickItem;

  // What the interface of texts reads comes from here as well.
  QString text(QAccessible::Text kind) const override {
    QString text = QAccessibleQuickItem::text(kind);
    if (!isSecret()) return text;
    if (kind == QAccessible::Name) return object()->property("placeholderText").toString();
    return kind == QAccessible::Value ? QString(text.size(), u'•') : QString();
  }

 private:
  // Asked each time: the first one to ask comes while the field is being made.
  bool isSecret() const {
    constexpr int asTyped = 0;  // TextInput.Normal
    return object()->property("echoMode").toInt() != asTyped;
  }
};

QAccessibleInterface* ofTextField(const QString& type, QObject* object) {
  return type == QLatin1String("QQuickTextField")
             ? new TextFieldAccessible(static_cast<QQuickItem*>(object))
             : nullptr;
}

}  // namespace

void keepPasswordsUnread() {
  QAccessible::installFactory(ofTextField);
}

}  // namespace vantor
