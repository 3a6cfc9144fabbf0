import QtQuick
import Orrelo.Kit

/// A picture as wide as its place, and as high as that makes it.
KitImage {
    height: heightForWidth
}
