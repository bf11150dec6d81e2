// Everything that the sign knows of itself: state, measurements, counters, who is logged in.
import {byId, fill, make} from "./dom.js";
import {on} from "./events.js";
import {cellText, table, tableOf, wordsOf} from "./table.js";

// Those that stand elsewhere on the page, or are no state of the sign.
const kElsewhere = ["condition", "tiles", "line", "receivedMs", "hosts"];

const panel = byId("state");
let state = null;

const plain = (value) => value === null || typeof value !== "object";
const list = (object) =>
    table(["", ""], Object.entries(object).map(([name, value]) => [wordsOf(name), cellText(value)]), "Values");

function section(name, value) {
    const content = Array.isArray(value) ? (value.length === 0 ? make("p", {class: "hint"}, "none")
        : plain(value[0]) ? make("p", {}, value.map(cellText).join(", ")) : tableOf(value, name)) : list(value);
    return make("section", {}, make("h3", {}, wordsOf(name)), content);
}

function show() {
    if (state === null || panel.hidden)
        return;
    const entries = Object.entries(state).filter(([name]) => !kElsewhere.includes(name));
    const simple = Object.fromEntries(entries.filter(([, value]) => plain(value)));
    const hosts = state.hosts ?? [];
    fill(panel, make("div", {class: "sections"},
        make("section", {}, make("h3", {}, "sign"), list(simple)),
        make("section", {}, make("h3", {}, "logged in"),
            hosts.length === 0 ? make("p", {class: "hint"}, "Nobody is logged in.") : tableOf(hosts, "Logged in")),
        ...entries.filter(([, value]) => !plain(value)).map(([name, value]) => section(name, value))));
}

export function beginState() {
    on("state", (now) => {
        state = now;
        show();
    });
    return show;
}
