import QtQuick

/// A host's own view, which bears the name of one of the kit's.
Item {
    readonly property string owner: "shop"
}
