// The logs of the sign's database, a table at a time.
import {get} from "./api.js";
import {button, byId, fill, make} from "./dom.js";
import {table} from "./table.js";

const kFirst = "SysLog"; // what hosts did
const kRows = 200;

const panel = byId("logs");
let chosen = null;

async function show() {
    try {
        const {tables} = await get("/api/logs");
        chosen = tables.includes(chosen) ? chosen : tables.includes(kFirst) ? kFirst : tables[0];
        const choose = (event) => { chosen = event.target.value; show(); };
        const select = make("select", {"aria-label": "Log", onchange: choose},
            tables.map((name) => make("option", {value: name, selected: name === chosen}, name)));
        const bar = make("div", {class: "bar"}, select, button("Look again", show, {class: "quiet"}));
        if (chosen === undefined)
            return fill(panel, make("p", {class: "hint"}, "There are no logs."));
        const {columns, rows} = await get("/api/logs", {table: chosen, limit: kRows});
        fill(panel, bar, rows.length === 0 ? make("p", {class: "hint"}, "Nothing in this log.")
            : table(columns, rows, chosen));
    } catch (error) {
        fill(panel, make("p", {class: "hint"}, error.message));
    }
}

export const beginLogs = () => show;
