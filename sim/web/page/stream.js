// The sign's events, kept together so that a page that comes later hears what came before.
import {Lamps} from "./lamps.js";

const kRetryMs = 1000;
const kSilenceMs = 15000; // the sign says that it is alive every five seconds
const kKeptExchanges = 200;

export function bytesOf(base64) {
    const text = atob(base64);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i)
        bytes[i] = text.charCodeAt(i);
    return bytes;
}

// Delivers (kind, data): "live" with true or false, "sign" when everything begins anew, "face", "state", "traffic".
export class Stream {
    // `base` is where the sign is, as in api.js.
    constructor(base, deliver) {
        this.base = base;
        this.deliver = deliver;
        this.forget();
        this.open();
    }

    forget() {
        this.live = null;
        this.sign = null;
        this.lamps = null;
        this.state = null;
        this.exchanges = [];
    }

    open() {
        this.source = new EventSource(`${location.origin}${this.base}/events`);
        for (const kind of ["sign", "face", "state", "traffic"])
            this.source.addEventListener(kind, (event) => this.take(kind, JSON.parse(event.data)));
        this.source.addEventListener("alive", () => this.watch());
        this.source.onerror = () => this.lose();
    }

    // Both what the browser would repeat and what it would give up is tried again in the same way.
    lose() {
        this.source.close();
        clearTimeout(this.silence);
        if (this.live !== false)
            this.deliver("live", this.live = false);
        setTimeout(() => this.open(), kRetryMs);
    }

    watch() {
        clearTimeout(this.silence);
        this.silence = setTimeout(() => this.lose(), kSilenceMs);
    }

    take(kind, data) {
        if (kind === "sign") {
            this.forget();
            this.sign = data;
            this.lamps = new Lamps(data.width, data.height);
            this.deliver("sign", data);
            this.deliver("live", this.live = true);
            return;
        }
        if (kind === "face") {
            data = data.rects.map((rect) => ({...rect, rgb: bytesOf(rect.rgb)}));
            data.forEach((rect) => this.lamps.put(rect));
        } else if (kind === "state") {
            data.receivedMs = Date.now();
            this.state = data;
        } else {
            this.exchanges = this.exchanges.concat(data.exchanges).slice(-kKeptExchanges);
        }
        this.deliver(kind, data);
    }

    // Tells a newcomer all that holds now.
    tell(deliver) {
        if (this.sign !== null) {
            deliver("sign", this.sign);
            deliver("face", [this.lamps.whole()]);
            if (this.state !== null)
                deliver("state", this.state);
            deliver("traffic", {exchanges: this.exchanges});
        }
        if (this.live !== null)
            deliver("live", this.live);
    }
}
