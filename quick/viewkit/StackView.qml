import QtQuick
import Orrelo.Kit

/// Blocks in a column, each followed by its own spacing. A block with nothing to show takes no space.
///
/// A page that is longer than the screen is shown before the blocks below the fold exist, if they tell their height before;
/// the stack has its whole height from the beginning. They are created after the first frame, a few at a time. A block that
/// comes into sight is created at once, and all are as soon as the keyboard is used, or at the beginning if assistive
/// technology is in use: both may move through the whole page.
Column {
    id: stack

    required property StackBridge model
    /// The y coordinates between which the stack is in sight.
    property real sightTop: 0
    property real sightBottom: Infinity
    readonly property bool needsAll: Theme.showsFocus || model.isRead
    /// The rows whose blocks do not exist yet, from top to bottom.
    property var pendingRows: []
    /// True from the first frame on, before which rows have no place.
    property bool isShown: false
    /// The height of the rows that have been made so far.
    property real heightSoFar: 0
    /// Measures texts for the heights of pending blocks. It is complete before the stack is, unlike a child.
    property Item measure: null

    function createInSight() {
        if (pendingRows.length === 0) return
        pendingRows = pendingRows.filter(row => {
            const y = isShown ? row.y : row.estimatedY
            if (y >= sightBottom || y + row.height <= sightTop) return true
            row.create()
            return false
        })
    }
    /// Creates blocks from the top for about two milliseconds.
    function createSome() {
        const rows = pendingRows.slice()
        const end = Date.now() + 2
        do rows.shift().create()
        while (rows.length > 0 && Date.now() < end)
        pendingRows = rows
    }
    function createAll() {
        for (const row of pendingRows) row.create()
        pendingRows = []
    }

    onSightTopChanged: createInSight()
    onSightBottomChanged: createInSight()
    onPositioningComplete: createInSight()
    onNeedsAllChanged: createAll()
    onWidthChanged: createAll()

    Connections {
        target: Theme
        function onTextScaleChanged() { stack.createAll() }
    }
    Connections {
        target: stack.Window.window
        enabled: !stack.isShown
        function onFrameSwapped() { stack.isShown = true }
    }
    Timer {
        interval: 1
        repeat: true
        running: stack.isShown && stack.pendingRows.length > 0
        onTriggered: stack.createSome()
    }
    Component {
        id: measureComponent
        KitText {
            readonly property real textScale: Theme.textScale
            visible: false
            Accessible.ignored: true
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
            property real pendingHeight: 0
            property real estimatedY: 0
            readonly property real exactHeight: (hasBlock ? block.height : pendingHeight) + modelData.spacingAfter

            function create() {
                pendingHeight = 0
                if (modelData.block.delegate.toString().length > 0)
                    loader.setSource(modelData.block.delegate, { model: modelData.block })
            }

            width: stack.width
            // In whole device pixels, so that images further down are drawn without resampling. Rounded down, so that
            // images without spacing leave no gap.
            height: Math.floor(exactHeight * Screen.devicePixelRatio) / Screen.devicePixelRatio
            z: block?.z ?? 0
            Component.onCompleted: {
                estimatedY = stack.heightSoFar
                const isBelow = estimatedY > stack.sightBottom && !stack.needsAll && modelData.inset !== null && width > 0
                if (isBelow && !stack.measure) stack.measure = measureComponent.createObject(stack)
                const height = isBelow ? modelData.block.heightFor(loader.width, stack.measure) : -1
                if (height < 0) {
                    create()
                } else {
                    pendingHeight = height
                    stack.pendingRows = stack.pendingRows.concat([row])
                }
                stack.heightSoFar += row.height
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
