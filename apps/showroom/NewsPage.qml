import QtQuick
import QtWebEngine
import Orrelo.Web

/// The shop's own web page, which may call the kit. Loaded only if there is a browser engine.
Rectangle {
    id: page

    required property url address
    /// The page has signed this user in.
    signal signedIn(string user)
    signal closed()

    /// Whether this is the origin of the shop's page.
    function isOwn(other: url): bool {
        const origin = /^https:\/\/[^\/?#]+/
        const own = origin.exec(address.toString())
        const found = origin.exec(other.toString())
        return own !== null && found !== null && own[0] === found[0]
    }

    color: "#f6f4ee"
    Keys.onEscapePressed: closed()
    Keys.onBackPressed: closed()

    ShopButton {
        id: leave
        x: 20
        y: 16
        width: 160
        height: 44
        text: "상점으로"
        onPressed: page.closed()
    }
    WebEngineView {
        anchors { left: parent.left; right: parent.right; top: leave.bottom; topMargin: 16; bottom: parent.bottom }
        OrreloWebKit.enabled: true
        OrreloWebKit.onFailed: (error, description) => console.warn(description)
        url: page.address
        // The page tells the shop of the user by the last part of its address.
        onUrlChanged: {
            const user = /#user=(\w+)$/.exec(url.toString())
            if (user && page.isOwn(url)) page.signedIn(user[1])
        }
    }
}
