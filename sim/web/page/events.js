// Hands the sign's events to the parts of the page.
import {base} from "./api.js";
import {Stream} from "./stream.js";

const listeners = {live: [], sign: [], face: [], state: [], traffic: []};
const deliver = (kind, data) => listeners[kind].forEach((listener) => listener(data));

export const on = (kind, listener) => listeners[kind].push(listener);

// One stream for all tabs, told when this one is seen.
function share() {
    const script = `${location.origin}/worker.js?${new URLSearchParams({base})}`;
    const worker = new SharedWorker(script, {type: "module", name: "vxsim"});
    worker.port.onmessage = ({data: {kind, data}}) => deliver(kind, data);
    worker.onerror = () => new Stream(base, deliver);
    const tell = () => worker.port.postMessage(document.hidden ? "hidden" : "seen");
    document.addEventListener("visibilitychange", tell);
    tell();
    addEventListener("pagehide", () => worker.port.postMessage("gone"));
    addEventListener("pageshow", (event) => { if (event.persisted) location.reload(); });
}

// To be called once everybody listens.
export function begin() {
    try {
        share();
    } catch { // a browser that has no such thing, or does not allow it
        new Stream(base, deliver);
    }
}
