import QtQuick
import Orrelo.Kit

/// A horizontal rule.
Rectangle {
    implicitHeight: 1
    color: Theme.divider
    Accessible.ignored: true
}
