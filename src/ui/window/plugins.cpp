// A static plugin is linked only into what names it: every program that shows the window compiles
// this.
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Vantor_StylePlugin)
Q_IMPORT_QML_PLUGIN(Vantor_UiPlugin)
Q_IMPORT_QML_PLUGIN(Vantor_ViewsPlugin)
