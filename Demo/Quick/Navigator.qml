pragma Singleton

import QtQuick

/// How a page asks the window for another one.
QtObject {
    signal pageRequested(string title)
    signal itemRequested(var item)
    signal developerRequested
    signal backRequested
    signal toastRequested(string text)
}
