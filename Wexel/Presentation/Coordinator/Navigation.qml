import QtQuick
import Wexel.Screens

// How screens come and go: the new one from the right (the left, where one reads from there), over the other, which
// moves a third of the way.
NavigationController {
    id: navigation

    readonly property int direction: LayoutMirroring.enabled ? -1 : 1
    readonly property real lag: 0.3
    property Item above
    property Item below
    property real progress: 1 // 0: the upper screen is out of sight

    clip: true
    onPushed: (screen, below) => run(screen, below, 0, 1)
    onPopped: (screen, below) => run(screen, below, 1, 0)

    function run(upper, lower, from, to) {
        above = upper;
        below = lower;
        progress = from;
        place();
        transition.from = from;
        transition.to = to;
        transition.restart();
    }
    function place() {
        above.x = direction * (1 - progress) * width;
        below.x = -direction * progress * lag * width;
    }

    onProgressChanged: {
        if (above && below)
            place();
    }
    NumberAnimation {
        id: transition
        target: navigation
        property: "progress"
        duration: 350
        easing.type: Easing.BezierSpline
        easing.bezierCurve: [0.25, 0.1, 0.25, 1, 1, 1]
        onFinished: {
            navigation.place();
            navigation.below.x = 0;
            navigation.transitionEnded();
        }
    }
}
