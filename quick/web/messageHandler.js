// Runs in the world of the pages, in each frame, before the page's own scripts. Only the top frame is connected
// to the host, so each frame gives it a port: what goes through the port is not visible to the scripts of pages.
(function (name, token) {
    "use strict"
    const stringify = JSON.stringify
    const {port1, port2} = new MessageChannel()
    const post = port1.postMessage.bind(port1)
    window.top.postMessage(token, "*", [port2])

    // The first letter tells a text from the JSON of another value.
    const handler = Object.freeze({
        postMessage(message) {
            post(typeof message === "string" ? "t" + message : "j" + stringify(message))
        }
    })
    if (!window.webkit) Object.defineProperty(window, "webkit", {value: {}})
    const webkit = window.webkit
    if (!webkit.messageHandlers) Object.defineProperty(webkit, "messageHandlers", {value: {}})
    Object.defineProperty(webkit.messageHandlers, name, {value: handler, enumerable: true})
})
