// Runs in the top frame, in the world that has the view's web channel. It passes the messages of the frames' ports
// to the host by setting a property of an object there, which is not answered.
(function (object, property, token) {
    "use strict"
    const transport = qt.webChannelTransport
    const send = transport.send.bind(transport)
    const stringify = JSON.stringify
    const setProperty = 9
    const pass = event => send(stringify({type: setProperty, object, property, value: String(event.data)}))
    const receive = event => {
        if (event.data !== token || event.ports.length !== 1) return
        event.stopImmediatePropagation()
        event.ports[0].onmessage = pass
    }
    const listen = () => window.addEventListener("message", receive, true)
    listen()
    // document.open() removes all listeners, and all nodes with them. Adding a present listener does nothing.
    new MutationObserver(listen).observe(document, {childList: true})
})
