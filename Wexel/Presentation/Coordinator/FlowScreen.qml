import QtQuick
import Wexel.Screens

// How the flow's window opens and closes.
FlowView {
    id: flow

    readonly property int duration: 400

    navigationController: content
    LayoutMirroring.enabled: Theme.isRightToLeft
    LayoutMirroring.childrenInherit: true

    Picture {
        anchors.fill: parent
        image: flow.backdrop
    }
    Navigation {
        id: content
        anchors.fill: parent
        scale: 0.9
    }
    // The screens fade as one: what is faded is the application above them.
    Picture {
        id: veil
        anchors.fill: parent
        image: flow.backdrop
        visible: opacity > 0
    }

    onOpening: openAnimation.start()
    onClosing: {
        openAnimation.stop();
        flow.enabled = false;
        closeAnimation.start();
    }

    ParallelAnimation {
        id: openAnimation
        NumberAnimation {
            target: veil
            property: "opacity"
            to: 0
            duration: flow.duration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: [0, 0, 0.58, 1, 1, 1]
        }
        NumberAnimation {
            target: content
            property: "scale"
            to: 1
            duration: flow.duration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: [0, 0, 0.58, 1, 1, 1]
        }
    }
    NumberAnimation {
        id: closeAnimation
        target: veil
        property: "opacity"
        to: 1
        duration: flow.duration
        easing.type: Easing.BezierSpline
        easing.bezierCurve: [0.42, 0, 1, 1, 1, 1]
        onFinished: flow.closed()
    }
}
