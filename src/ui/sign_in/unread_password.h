#pragma once

namespace vantor {

/// Lets assistive programs find the fields of passwords by their names and never what is typed
/// there: Qt 6.4 tells everyone on their bus of the text. Main thread; once is enough.
void keepPasswordsUnread();

}  // namespace vantor
