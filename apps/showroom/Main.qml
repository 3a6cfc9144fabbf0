import QtQuick
import QtQuick.Window
import Orrelo

Window {
    id: root
    property alias textScale: host.textScale
    property int purchases: 0
    /// True once the user has pressed the marketing campaign's button: the shop grants consent at once.
    property bool hasConsent: false

    width: 390
    height: 844
    visible: true
    title: "파랑상점"
    color: "#f6f4ee"

    function signIn(user: string) {
        Orrelo.setUser(user, Orrelo.OptIn)
        showroom.user = user
    }

    function signOut() {
        Orrelo.setUser(null)
        showroom.user = ""
    }

    Connections {
        target: Orrelo
        function onMoveButtonTapped() { root.hasConsent = true }
    }
    OrreloHost {
        id: host
        anchors.fill: parent
        pushesScreens: true

        Flickable {
            id: shop
            objectName: "shop"
            anchors.fill: parent
            // The last row can be scrolled out from beneath the floating button.
            contentHeight: page.height + 24 + 104
            boundsBehavior: Flickable.StopAtBounds

            Column {
                id: page
                x: (root.width - width) / 2
                y: 24
                width: Math.min(440, root.width - 40)
                spacing: 16

                Text {
                    text: "파랑상점"
                    font { pixelSize: 28; weight: Font.Black }
                    color: "#1d3a5f"
                }
                Text {
                    width: parent.width
                    wrapMode: Text.Wrap
                    text: showroom.user === "" ? "로그인하지 않았어요" : showroom.user + "님, 반가워요"
                    font.pixelSize: 16
                    color: "#45566b"
                }
                ShopButton {
                    text: showroom.user === "" ? "민지로 로그인" : "로그아웃"
                    onPressed: showroom.user === "" ? root.signIn("minji") : root.signOut()
                }
                OrreloCampaignEntryView {
                    width: parent.width
                    height: 88
                    // Takes no room while it cannot be seen.
                    visible: showroom.user !== ""
                    entryName: "shop_banner"

                    Rectangle {
                        anchors.fill: parent
                        radius: 16
                        gradient: Gradient {
                            orientation: Gradient.Horizontal
                            GradientStop { position: 0; color: "#1d3a5f" }
                            GradientStop { position: 1; color: "#5b50e8" }
                        }
                        // The entry view takes this name for the area that it makes pressable.
                        Accessible.name: "오늘의 혜택 모두 보기"
                        Accessible.ignored: true

                        Column {
                            anchors { left: parent.left; right: gift.left; leftMargin: 20; verticalCenter: parent.verticalCenter }
                            spacing: 2
                            Text {
                                width: parent.width
                                elide: Text.ElideRight
                                text: parent.parent.Accessible.name
                                Accessible.ignored: true
                                font { pixelSize: 18; weight: Font.DemiBold }
                                color: "#ffffff"
                            }
                            Text {
                                width: parent.width
                                elide: Text.ElideRight
                                text: "출석, 룰렛, 복권까지 한곳에서"
                                font.pixelSize: 14
                                color: "#dfe3ff"
                                Accessible.ignored: true
                            }
                        }
                        Text {
                            id: gift
                            anchors { right: parent.right; rightMargin: 20; verticalCenter: parent.verticalCenter }
                            text: "🎁"
                            font.pixelSize: 32
                            Accessible.ignored: true
                        }
                    }
                }
                OrreloExternalPointEntryView { width: parent.width }
                Row {
                    width: parent.width
                    spacing: 12

                    ShopButton {
                        width: showroom.newsUrl === "" ? parent.width : campaigns.cell
                        text: "혜택 홈 열기"
                        onPressed: Orrelo.showHome()
                    }
                    ShopButton {
                        width: campaigns.cell
                        visible: showroom.newsUrl !== ""
                        text: "파랑상점 소식"
                        onPressed: news.active = true
                    }
                }
                ShopButton {
                    visible: showroom.user !== ""
                    text: "오늘의 메시지 보기"
                    onPressed: Orrelo.showInAppMessage()
                }
                Rectangle {
                    width: parent.width
                    height: goods.height + 32
                    radius: 16
                    color: "#ffffff"

                    Column {
                        id: goods
                        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 16 }
                        spacing: 12
                        Text {
                            text: "파란 운동화"
                            font { pixelSize: 18; weight: Font.DemiBold }
                            color: "#1d3a5f"
                        }
                        Text {
                            text: "39,900원"
                            font.pixelSize: 16
                            color: "#45566b"
                        }
                        ShopButton {
                            text: root.purchases === 0 ? "구매하기" : "구매하기 (" + root.purchases + ")"
                            onPressed: {
                                Orrelo.sendEvent("purchase", { item: "blue shoes", price: 39.9 })
                                root.purchases++
                            }
                        }
                    }
                }
                Grid {
                    id: campaigns

                    readonly property real cell: (width - spacing) / 2

                    width: parent.width
                    columns: 2
                    spacing: 12

                    ShopButton {
                        width: campaigns.cell
                        text: "출석체크 열기"
                        onPressed: Orrelo.showCampaign("attendance")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "진행 중인 출석"
                        onPressed: Orrelo.showCampaignOfType(Orrelo.Attendance)
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "이벤트 결과 보기"
                        onPressed: Orrelo.showCampaign("result")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "스탬프 모으기"
                        onPressed: Orrelo.showCampaign("stamp")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "선물 상자 열기"
                        onPressed: Orrelo.showPage("gift-box")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "혜택 알림"
                        onPressed: Orrelo.showCampaign("marketing")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "룰렛 돌리러 가기"
                        onPressed: Orrelo.showCampaign("roulette")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "복권 긁으러 가기"
                        onPressed: Orrelo.showCampaign("scratch")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "비밀 복권 열기"
                        onPressed: Orrelo.showCampaign("scratch-locked")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "이벤트 예고 보기"
                        onPressed: Orrelo.showCampaign("empty")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "축제 안내 보기"
                        onPressed: Orrelo.showCampaign("festival")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "행운의 동전 보기"
                        onPressed: Orrelo.showCampaign("coins")
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "알림 받기"
                        onPressed: notifications.play()
                    }
                    ShopButton {
                        width: campaigns.cell
                        text: "친구 초대하기"
                        onPressed: Orrelo.showCampaign("referral")
                    }
                }
                Text {
                    width: parent.width
                    wrapMode: Text.Wrap
                    visible: root.hasConsent
                    text: "혜택 알림을 받고 있어요"
                    font.pixelSize: 16
                    color: "#45566b"
                }
                Text {
                    width: parent.width
                    wrapMode: Text.WrapAnywhere
                    visible: showroom.serviceUrl !== ""
                    text: "캠페인 서비스: " + showroom.serviceUrl
                    font.pixelSize: 12
                    color: "#7b8794"
                }
            }
        }
        OrreloCampaignFloatingActionButton {
            anchors { right: parent.right; bottom: parent.bottom }
            visible: !news.active
        }
        Loader {
            id: news
            anchors.fill: parent
            active: false
            onActiveChanged: if (active) setSource("NewsPage.qml", { address: showroom.newsUrl })
            onLoaded: item.forceActiveFocus()

            Connections {
                target: news.item
                function onSignedIn(user) { showroom.user = user }
                function onClosed() { news.active = false }
            }
        }
    }
    NotificationBanner {
        x: (root.width - width) / 2
        width: Math.min(440, root.width - 24)
        title: notifications.title
        text: notifications.text
        isShown: notifications.isShown
        onOpened: notifications.open()
        onRemoved: notifications.remove()
    }
}
