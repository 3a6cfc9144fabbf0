import QtQuick

/// A host's own view with the same name as one of the kit's views.
Item {
    readonly property string owner: "shop"
}
