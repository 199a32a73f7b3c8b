// The least that a Qt Quick program does: one window of one colour, from QML, with the same style.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  QQuickStyle::setStyle(u"Basic"_s);
  QQmlApplicationEngine engine;
  engine.loadData(
      "import QtQuick\nimport QtQuick.Controls\n"
      "ApplicationWindow { width: 1320; height: 820; visible: true; flags: Qt.FramelessWindowHint\n"
      "  Rectangle { anchors.fill: parent; color: '#1F292E' }\n"
      "  Label { text: 'Empty'; color: '#E8EDED' } }");
  return QGuiApplication::exec();
}
