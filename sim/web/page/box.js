// The buttons of the box itself: power, reset, light, door, clock. Nothing that a host does.
import {change, post} from "./api.js";
import {ask, button, byId, make, slider, toggle} from "./dom.js";
import {on} from "./events.js";

const body = byId("box").querySelector(".body");
const kMostLight = 8;

const lightWords = (level) => (level === 0 ? "by the hour" : `${level} of ${kMostLight}`);

function offsetText(seconds) {
    if (seconds === 0)
        return "";
    const amount = Math.abs(seconds);
    const parts = [[Math.floor(amount / 3600), "h"], [Math.floor(amount / 60) % 60, "min"], [amount % 60, "s"]];
    const words = parts.filter(([value]) => value > 0).map(([value, unit]) => `${value} ${unit}`).join(" ");
    return `${words} ${seconds > 0 ? "ahead" : "behind"}`;
}

async function reset() {
    if (await ask("Reset the sign? It plays its list anew.", "Reset"))
        post("/api/box", {reset: true});
}

function clockPart() {
    const time = make("time", {});
    const offset = make("span", {class: "why"});
    let state = null;
    let live = false;
    const show = () => {
        if (state === null || !live)
            return;
        const passed = Math.floor((Date.now() - state.receivedMs) / 1000);
        const now = new Date(`${state.clock.local}Z`); // its own time of day, whatever the zone here
        now.setSeconds(now.getSeconds() + passed);
        time.textContent = now.toISOString().slice(0, 19).replace("T", " ");
        offset.textContent = offsetText(Math.round(state.clock.offset));
        inTime.setAttribute("aria-pressed", String(Math.round(state.clock.offset) === 0));
    };
    const shift = (text, seconds, label) => button(text, () => {
        post("/api/box", {clock: seconds === 0 ? 0 : Math.round(state?.clock.offset ?? 0) + seconds});
    }, {"aria-label": label});
    const inTime = shift("In time", 0, "Clock in time");
    setInterval(show, 1000);
    on("live", (now) => { live = now; show(); });
    on("state", (now) => { state = now; show(); });
    return [
        make("div", {class: "row"}, make("span", {class: "label"}, "Clock"),
            make("span", {class: "clock"}, time, " ", offset)),
        make("div", {class: "row"}, make("span", {class: "segments"},
            shift("−1 h", -3600, "One hour back"), shift("−1 min", -60, "One minute back"), inTime,
            shift("+1 min", 60, "One minute ahead"), shift("+1 h", 3600, "One hour ahead"))),
    ];
}

export function beginBox() {
    const power = toggle("Power", (wanted) => post("/api/box", {power: wanted}));
    const door = toggle("Door open", (wanted) => change([{what: "door", value: wanted ? "open" : "closed"}]));
    const light = slider("Light",
        {max: kMostLight, words: lightWords, act: (level) => post("/api/box", {light: level})});
    body.append(power.row, light.row, door.row, ...clockPart(),
        make("div", {class: "row end"}, button("Reset", reset)));
    on("state", (state) => {
        power.show(state.power);
        light.show(state.lightFixed ? state.light : 0);
        door.show(state.door === "open");
    });
}
