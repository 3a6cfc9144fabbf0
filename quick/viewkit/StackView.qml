import QtQuick
import Orrelo.Kit

/// Blocks in a column, each followed by its own spacing. A block with nothing to show takes no space.
///
/// A page that is longer than the screen is shown before the blocks below the fold exist, if they tell their height before;
/// the stack has its whole height from the beginning. They are created afterwards, a few in each frame. A block that comes
/// into sight is created at once, and all are as soon as the keyboard or assistive technology is used, which may move
/// through the page.
Column {
    id: stack

    required property StackBridge model
    /// The y coordinates between which the stack is in sight.
    property real sightTop: 0
    property real sightBottom: Infinity
    readonly property bool needsAll: Theme.showsFocus || model.isRead
    /// The rows whose blocks do not exist yet, from top to bottom.
    property var late: []
    /// The height of the rows so far, while they are created.
    property real filled: 0
    /// Measures texts for the heights of late blocks. It is complete before the stack is, unlike a child.
    property Item measure: null

    /// Creates the late blocks that are in sight.
    function show() {
        late = late.filter(row => {
            const top = Math.max(row.start, row.y)
            if (top >= sightBottom || top + row.height <= sightTop) return true
            row.create()
            return false
        })
    }
    /// Creates late blocks from the top for at least two milliseconds, or all of them.
    function createLate(isWhole) {
        const rows = late.slice()
        const end = Date.now() + 2
        do rows.shift().create()
        while (rows.length > 0 && (isWhole || Date.now() < end))
        late = rows
    }

    onSightTopChanged: if (late.length > 0) show()
    onSightBottomChanged: if (late.length > 0) show()
    onNeedsAllChanged: if (late.length > 0) createLate(true)
    onWidthChanged: if (late.length > 0) createLate(true)

    Connections {
        target: Theme
        function onTextScaleChanged() { if (stack.late.length > 0) stack.createLate(true) }
    }
    Timer {
        interval: 1
        repeat: true
        running: stack.late.length > 0
        onTriggered: stack.createLate(false)
    }
    Component {
        id: measureComponent
        KitText {
            readonly property real textScale: Theme.textScale
            visible: false
        }
    }
    Repeater {
        model: stack.model.rows

        Item {
            id: row

            required property var modelData
            readonly property Item block: loader.item as Item
            readonly property bool hasBlock: block?.visible ?? false
            /// The height of a block that does not exist yet.
            property real lateHeight: 0
            /// Where the row begins, at least.
            property real start: 0
            readonly property real exactHeight: (hasBlock ? block.height : lateHeight) + modelData.spacingAfter

            function create() {
                lateHeight = 0
                if (modelData.block.delegate.toString().length > 0)
                    loader.setSource(modelData.block.delegate, { model: modelData.block })
            }

            width: stack.width
            // In whole device pixels, so that images further down are drawn without resampling. Rounded down, so that
            // images without spacing leave no gap.
            height: Math.floor(exactHeight * Screen.devicePixelRatio) / Screen.devicePixelRatio
            z: block?.z ?? 0
            Component.onCompleted: {
                start = stack.filled
                const isBelow = start > stack.sightBottom && !stack.needsAll && modelData.inset !== null && width > 0
                if (isBelow && !stack.measure) stack.measure = measureComponent.createObject(stack)
                const height = isBelow ? modelData.block.heightFor(loader.width, stack.measure) : -1
                if (height < 0) {
                    create()
                } else {
                    lateHeight = height
                    stack.late = stack.late.concat([row])
                }
                stack.filled += exactHeight
            }

            Loader {
                id: loader
                x: row.modelData.inset ?? (row.width - width) / 2
                // Limited to the page's width, whatever width the service requests.
                width: row.modelData.inset === null ? Math.min(item?.implicitWidth ?? 0, row.width)
                                                    : row.width - 2 * row.modelData.inset
            }
        }
    }
}
