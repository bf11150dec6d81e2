// One stream for all pages of a sign in a browser: it opens six connections to a sign at most, and each stream holds one.
import {Stream} from "./stream.js";

const pages = new Map(); // by port, whether it is seen
const base = new URLSearchParams(location.search).get("base");
const stream = new Stream(base, (kind, data) => pages.forEach((seen, port) => {
    if (seen || kind !== "face") // pictures would heap up before a page that sleeps
        port.postMessage({kind, data});
}));

function hear(port, word) {
    if (!pages.has(port)) // it has said that it goes, and is hidden only then
        return;
    pages.set(port, word === "seen");
    if (word === "gone")
        pages.delete(port);
    else if (word === "seen" && stream.lamps !== null)
        port.postMessage({kind: "face", data: [stream.lamps.whole()]});
}

addEventListener("connect", ({ports: [port]}) => {
    port.onmessage = ({data}) => hear(port, data);
    pages.set(port, true);
    stream.tell((kind, data) => port.postMessage({kind, data}));
});
