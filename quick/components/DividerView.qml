import QtQuick
import Orrelo

/// A horizontal rule.
Rectangle {
    implicitHeight: 1
    color: Theme.divider
    Accessible.ignored: true
}
