// The tabs: one panel is seen at a time. It loads when it is opened, when the sign is back, and when its state changes.
import {button, byId} from "./dom.js";
import {on} from "./events.js";

const kLoadMs = 1000;

let tabs = [];
let open = null;
let waits = false;
let live = false;

function show(id, {focus = false, load = true} = {}) {
    open = id;
    for (const tab of tabs) {
        const selected = tab.id === id;
        tab.control.setAttribute("aria-selected", String(selected));
        tab.control.tabIndex = selected ? 0 : -1;
        byId(tab.id).hidden = !selected;
        if (selected && focus)
            tab.control.focus();
        if (selected && load)
            tab.load?.();
    }
    history.replaceState(null, "", `#/${id}`); // no id, which the browser would scroll to
}

function onKey(event) {
    const step = {ArrowLeft: -1, ArrowRight: 1}[event.key];
    if (step === undefined)
        return;
    const at = tabs.findIndex(({id}) => id === open);
    show(tabs[(at + step + tabs.length) % tabs.length].id, {focus: true});
    event.preventDefault();
}

// Once a second at most, however fast commands come.
export function loadSoon() {
    const {load} = tabs.find(({id}) => id === open);
    if (waits || !load)
        return;
    waits = true;
    setTimeout(() => {
        waits = false;
        if (live)
            tabs.find(({id}) => id === open).load?.();
    }, kLoadMs);
}

// Each [id, title, load]; without `load` the panel looks after itself.
export function beginTabs(list) {
    tabs = list.map(([id, title, load]) => {
        const control = button(title, () => show(id),
            {role: "tab", id: `${id}Tab`, "aria-controls": id, "aria-selected": "false", tabindex: "-1"});
        byId(id).setAttribute("aria-labelledby", control.id);
        return {id, control, load};
    });
    byId("tabs").append(...tabs.map(({control}) => control));
    byId("tabs").addEventListener("keydown", onKey);
    const asked = location.hash.slice(2);
    show(tabs.some(({id}) => id === asked) ? asked : tabs[0].id, {load: false});
    on("sign", () => show(open));
    on("live", (now) => { live = now; });
    on("state", loadSoon);
}
