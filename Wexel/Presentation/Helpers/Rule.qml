import QtQuick
import Wexel.Screens

// A hairline between parts of a screen.
Rectangle {
    height: 1
    color: Theme.paleGrey
}
