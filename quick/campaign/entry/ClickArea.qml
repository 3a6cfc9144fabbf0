import QtQuick
import Orrelo.Kit

/// Makes the item that contains it pressable. It has no size of its own, so that a row or a column leaves it
/// out of its layout. An item without an area is a helper of the host's and takes no input.
Item {
    id: area

    required property ClickableView model

    z: 1000
    visible: (model?.isEnabled ?? false) && pressArea.width > 0 && pressArea.height > 0

    PressArea {
        id: pressArea
        width: area.parent?.width ?? 0
        height: area.parent?.height ?? 0
        name: area.model?.name ?? ""
        onPressed: area.model.tap()
    }
}
