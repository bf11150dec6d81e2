// The menu of a pixel, of several, or of a tile: what they are, what is wrong with them, and what shall be.
import {change} from "./api.js";
import {button, byId, fill, make} from "./dom.js";
import {on} from "./events.js";
import {chosenBounds, colourText, unchoose} from "./marks.js";

const kLamps = ["red", "green", "blue"];
const kFaults = [["dark", "Dark"], ["stuck", "Stuck"], ["signal", "No signal"]];
const kTileErrors = [
    "queue", "bus", "retry", "normal", "task", "broadcast", "control", "address", "twi", "pixel", "full",
];

const kGap = 10; // between the menu and what it is about

const menu = byId("menu");
let subject = null;
let condition = null;

function* pixelsOf({left, top, right, bottom}) {
    for (let y = top; y <= bottom; ++y) {
        for (let x = left; x <= right; ++x)
            yield [x, y];
    }
}

const inside = ({left, top, right, bottom}, {x, y}) => x >= left && x <= right && y >= top && y <= bottom;

// What is wrong with a lamp of all the pixels: a fault, "" for none, null if they differ.
function faultOf(part, lamp) {
    const count = (part.right - part.left + 1) * (part.bottom - part.top + 1);
    const bad = condition.lamps.filter((one) => one.lamp === lamp && inside(part, one));
    if (bad.length === 0)
        return "";
    return bad.length === count && bad.every(({fault}) => fault === bad[0].fault) ? bad[0].fault : null;
}

// A pixel is mended as a whole: the lamps that shall stay bad are broken again behind it.
function mended(part, lamp) {
    const bad = condition.lamps.filter((one) => inside(part, one));
    const pixels = new Set(bad.map(({x, y}) => `${x},${y}`));
    const kept = bad.filter((one) => lamp !== "all" && one.lamp !== lamp);
    return [
        ...[...pixels].map((value) => ({what: "good", value})),
        ...kept.map((one) => ({what: "bad", value: `${one.x},${one.y},${one.lamp},${one.fault}`})),
    ];
}

function setFault(lamp, fault) {
    const {part} = subject;
    change(fault === "" ? mended(part, lamp)
        : [...pixelsOf(part)].map(([x, y]) => ({what: "bad", value: `${x},${y},${lamp},${fault}`})));
}

function lampRow(lamp, title) {
    const faults = lamp === "all" ? kLamps.map((one) => faultOf(subject.part, one)) : [faultOf(subject.part, lamp)];
    const choice = (fault, text) => button(text, () => setFault(lamp, fault), {
        "aria-pressed": String(faults.every((one) => one === fault)),
        "aria-label": `${title}: ${text}`,
    });
    return make("div", {class: "row", role: "group", "aria-label": title},
        make("span", {class: `label lamp ${lamp}`}, title),
        make("span", {class: "segments"}, choice("", "Works"), kFaults.map(([fault, text]) => choice(fault, text))));
}

function pixelMenu({left, top, right, bottom}) {
    const one = left === right && top === bottom;
    const swatch = make("span", {class: "swatch"});
    swatch.style.background = colourText(left, top);
    const count = (right - left + 1) * (bottom - top + 1);
    return [
        make("h3", {}, one ? [`x ${left}  y ${top}`, swatch, make("code", {}, colourText(left, top))]
            : `${count} pixels, x ${left} to ${right}, y ${top} to ${bottom}`),
        lampRow("all", "All"),
        ...kLamps.map((lamp) => lampRow(lamp, lamp[0].toUpperCase() + lamp.slice(1))),
    ];
}

function tileMenu(tile) {
    const error = condition.tileErrors[tile] ?? "";
    const mark = (text, on, yes, no) => {
        const isOn = condition[on].includes(tile);
        return make("div", {class: "row"}, make("span", {class: "label"}, text),
            make("button", {
                type: "button", role: "switch", class: "switch", "aria-label": text, "aria-checked": String(isOn),
                onclick: (event) => {
                    const checked = event.currentTarget.getAttribute("aria-checked") === "true";
                    change([{what: checked ? no : yes, value: String(tile)}]);
                },
            }));
    };
    const select = make("select", {
        onchange: (event) => change([event.target.value === "" ? {what: "tile-good", value: String(tile)}
            : {what: "tile-error", value: `${tile},${event.target.value}`}]),
    }, ["", ...kTileErrors].map((name) => make("option", {value: name, selected: name === error}, name || "none")));
    return [
        make("h3", {}, `Tile ${tile}`),
        mark("Hot", "hotTiles", "hot", "cool"),
        mark("Takes no calibration", "lockedTiles", "lock", "unlock"),
        make("label", {class: "row"}, make("span", {class: "label"}, "Answers with the error"), select),
    ];
}

function show() {
    const focused = [...menu.querySelectorAll("button, select")].indexOf(document.activeElement);
    fill(menu, button("×", closeMenu, {class: "close quiet", "aria-label": "Close"}),
        ...(subject.tile === null ? pixelMenu(subject.part) : tileMenu(subject.tile)));
    menu.setAttribute("aria-label", menu.querySelector("h3").textContent);
    if (focused >= 0)
        menu.querySelectorAll("button, select")[focused]?.focus();
}

// Below what was chosen, or above it where only there is room, and within the stage.
function place() {
    const {left, top, width, height} = chosenBounds();
    const stage = byId("stage").getBoundingClientRect();
    const panel = byId("marks").getBoundingClientRect();
    const x = panel.left - stage.left + left + width / 2 - menu.offsetWidth / 2;
    const below = panel.top + top + height + kGap;
    const above = panel.top + top - kGap - menu.offsetHeight;
    const y = below + menu.offsetHeight > innerHeight && above > 0 ? above : below;
    menu.style.left = `${Math.max(kGap, Math.min(stage.width - menu.offsetWidth - kGap, x))}px`;
    menu.style.top = `${y - stage.top}px`;
}

export function openMenu({tile, part, condition: now}) {
    subject = {tile, part};
    condition = now;
    menu.hidden = false;
    show();
    place();
    menu.querySelector(".segments button, .switch").focus({preventScroll: true});
    menu.scrollIntoView({block: "nearest", behavior: "smooth"});
}

function closeMenu() {
    if (menu.hidden)
        return;
    menu.hidden = true;
    subject = null;
    unchoose();
    byId("marks").focus({preventScroll: true});
}

export function beginMenu() {
    document.addEventListener("keydown", (event) => {
        if (event.key === "Escape")
            closeMenu();
    });
    document.addEventListener("pointerdown", (event) => {
        if (!menu.contains(event.target) && event.target !== byId("marks") && !menu.hidden) {
            menu.hidden = true;
            unchoose();
        }
    });
    on("state", (state) => {
        condition = state.condition;
        if (subject !== null && !menu.hidden)
            show();
    });
    on("sign", closeMenu);
}
