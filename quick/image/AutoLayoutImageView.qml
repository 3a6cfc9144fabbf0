import QtQuick
import Orrelo.Kit

/// An image as wide as its parent allows, whose height follows from its aspect ratio.
KitImage {
    height: heightForWidth
}
