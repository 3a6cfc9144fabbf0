import QtQuick
import Orrelo.Kit

/// The page of the service where points are exchanged; white with an activity indicator while there is none.
FocusScope {
    id: view

    required property ExternalPointExchangeBridge screen

    focus: true
    Accessible.role: Accessible.Pane
    Accessible.name: "포인트 교환"
    Keys.onBackPressed: event => {
        if (!event.isAutoRepeat) screen.didSwipeRight()
    }

    Rectangle {
        anchors.fill: parent
        color: "white"
    }
    SwipeArea {
        anchors.fill: parent
        onSwiped: view.screen.didSwipeRight()

        Loader {
            anchors.fill: parent
            focus: true
            active: view.screen.page !== null && !view.screen.page.isEmpty
            Component.onCompleted: {
                if (view.screen.page && view.screen.hasBrowser) {
                    setSource(view.screen.browser, { screen: view.screen })
                }
            }
        }
    }
    ActivityIndicator {
        anchors.centerIn: parent
        width: 50
        height: width
        isAnimating: view.screen.isIndicatorAnimating
    }
}
