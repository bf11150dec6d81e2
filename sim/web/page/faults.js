// Faults: what the line does to replies, and a summary of what is wrong with the sign.
import {change, post} from "./api.js";
import {button, byId, fill, make, slider, toggle} from "./dom.js";
import {on} from "./events.js";
import {showTiles} from "./marks.js";

const kChances = [["drop", "Lost"], ["truncate", "Cut"], ["wrongId", "Wrong id"], ["badSum", "Bad checksum"]];
const kMostNoise = 64;
const kWell = {drop: 0, truncate: 0, wrongId: 0, badSum: 0, noise: 0, delay: 0, unplugged: false};

// The delays of the slider, in milliseconds: fine where it matters, up to what a sign allows.
const kDelays = [0, 10, 20, 50, 100, 200, 300, 500, 750, 1000, 1500, 2000, 3000, 5000, 10000, 20000, 30000, 60000];
const delayText = (ms) => (ms < 1000 ? `${ms} ms` : `${ms / 1000} s`);
const percent = (chance) => `${Math.round(chance * 100)} %`;
const set = (name) => (value) => post("/api/line", {[name]: value});

function beginLine() {
    const unplugged = toggle("Unplugged", set("unplugged"));
    unplugged.row.classList.add("strong");
    const chances = kChances.map(([name, text]) =>
        [name, slider(text, {max: 1, step: 0.01, words: percent, act: set(name)})]);
    const noise = slider("Noise ahead", {max: kMostNoise, words: (count) => `${count} B`, act: set("noise")});
    const delay = slider("Delay", {
        max: kDelays.length - 1,
        words: (at) => delayText(kDelays[at]),
        act: (at) => set("delay")(kDelays[at]),
    });
    byId("line").querySelector(".body").append(unplugged.row, ...chances.map(([, {row}]) => row), noise.row, delay.row,
        make("div", {class: "row end"}, button("A good line", () => post("/api/line", kWell))));
    on("state", ({line}) => {
        unplugged.show(line.unplugged);
        chances.forEach(([name, control]) => control.show(line[name]));
        noise.show(line.noise);
        const at = kDelays.findIndex((ms) => ms >= line.delay);
        delay.show(at < 0 ? kDelays.length - 1 : at);
        byId("line").classList.toggle("bad", Object.keys(kWell).some((name) => Boolean(line[name])));
    });
}

function lampSummary(lamps) {
    if (lamps.length === 0)
        return "all lamps work";
    const pixels = new Set(lamps.map(({x, y}) => `${x},${y}`)).size;
    const count = (number, one) => `${number} ${one}${number === 1 ? "" : "s"}`;
    return `${count(lamps.length, "bad lamp")} in ${count(pixels, "pixel")}`;
}

function tileSummary({hotTiles, tileErrors, lockedTiles}) {
    const parts = [
        hotTiles.length > 0 ? `hot: ${hotTiles.join(", ")}` : "",
        ...Object.entries(tileErrors).map(([tile, error]) => `${tile} answers “${error}”`),
        lockedTiles.length > 0 ? `locked: ${lockedTiles.join(", ")}` : "",
    ].filter(Boolean);
    return parts.length === 0 ? "all tiles work" : parts.join("; ");
}

const row = (label, text, ...controls) => make("div", {class: "row"}, make("span", {class: "label"}, label),
    make("span", {class: "grow"}, text), ...controls);

const mendTiles = () => change(["cool", "tile-good", "unlock"].map((what) => ({what, value: "all"})));
const mendLamps = () => change([{what: "good", value: "all"}]);

export function beginFaults() {
    beginLine();
    const body = byId("faults").querySelector(".body");
    on("state", (state) => {
        const {condition} = state;
        const tilesBad = condition.hotTiles.length + condition.lockedTiles.length
            + Object.keys(condition.tileErrors).length;
        fill(body,
            row("Lamps", lampSummary(condition.lamps),
                condition.lamps.length > 0 ? button("Mend all", mendLamps) : null),
            state.tiles === null ? null : row("Tiles", tileSummary(condition),
                tilesBad > 0 ? button("Mend all", mendTiles) : button("Show", () => showTiles(true))),
            row("Temperature", temperatures(state)),
            make("p", {class: "hint"}, "Click a pixel of the face, or drag over several, to break or mend them; "
                + "with the tiles shown, click a tile."));
        byId("faults").classList.toggle("bad", condition.lamps.length + tilesBad > 0);
    });
}

const kTemperatures = [
    ["temperatureC", "outside"], ["insideC", "inside"], ["boxC", "box"], ["hottestTileC", "hottest tile"],
];

const temperatures = (state) => kTemperatures.filter(([name]) => state[name] !== undefined)
    .map(([name, where]) => `${where} ${state[name]} °C`).join(", ");
