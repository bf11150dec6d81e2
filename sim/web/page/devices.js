// What stands at the sign: Modbus devices with their registers, tiles, signals of a controller.
import {get} from "./api.js";
import {button, byId, fill, make} from "./dom.js";
import {on} from "./events.js";
import {tableOf} from "./table.js";
import {loadSoon} from "./tabs.js";

const panel = byId("devices");
let hasSignals = false;

const section = (title, content) => make("section", {}, make("h3", {}, title), content);
const hint = (text) => make("p", {class: "hint"}, text);

const lightsOf = ({group, ...lights}) => ({group, lights: Object.keys(lights).filter((name) => lights[name]).join(", ")});

const wordsOfTile = ({address, column, row, temperatureC, hot, locked, error}) => ({
    tile: address,
    place: `${column + 1}, ${row + 1}`,
    temperatureC,
    faults: [hot ? "hot" : "", error, locked ? "locked" : ""].filter(Boolean).join(", "),
});

async function show() {
    try {
        const {modbus, tiles, signals} = await get("/api/devices");
        const sections = [
            ...modbus.map(({address, registers}) => section(`Modbus device ${address}`, registers.length === 0
                ? hint("No register was written.") : tableOf(registers, `Registers of ${address}`))),
            signals.length === 0 ? null : section("Signals", tableOf(signals.map(lightsOf), "Signals")),
            tiles.length === 0 ? null : section("Tiles", tableOf(tiles.map(wordsOfTile), "Tiles")),
        ].filter(Boolean);
        hasSignals = signals.length > 0;
        fill(panel, make("div", {class: "bar"}, button("Look again", show, {class: "quiet"})),
            sections.length === 0 ? hint("No devices. vxsim --modbus has some, and vxsim --controller has signals.")
                : make("div", {class: "sections"}, sections));
    } catch (error) {
        fill(panel, hint(error.message));
    }
}

export function beginDevices() {
    on("face", () => { // signals change without a command
        if (hasSignals && !panel.hidden)
            loadSoon();
    });
    return show;
}
