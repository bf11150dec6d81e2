// A table of texts, in a box of its own that scrolls sideways where there is no room.
import {make} from "./dom.js";

export function cellText(value) {
    if (value === null || value === undefined)
        return "";
    if (typeof value === "boolean")
        return value ? "yes" : "no";
    return typeof value === "object" ? JSON.stringify(value) : String(value);
}

export function table(columns, rows, label) {
    return make("div", {class: "scroll", tabindex: "0", role: "group", "aria-label": label},
        make("table", {}, make("thead", {}, make("tr", {}, columns.map((name) => make("th", {scope: "col"}, name)))),
            make("tbody", {}, rows.map((row) => make("tr", {}, row.map((cell) =>
                make("td", {}, cell instanceof Node ? cell : cellText(cell))))))));
}

// A table of objects; the columns are their members.
export function tableOf(objects, label) {
    const columns = [...new Set(objects.flatMap((object) => Object.keys(object)))];
    return table(columns.map(wordsOf), objects.map((object) => columns.map((name) => object[name])), label);
}

// "boxTemperatureC" as "box temperature, °C".
export function wordsOf(name) {
    const [, stem, unit] = name.match(/^(.*?)(C|Ms|Us|Percent)?$/);
    const words = stem.replace(/([a-z0-9])([A-Z])/g, "$1 $2").toLowerCase();
    return unit === undefined ? words : `${words}, ${{C: "°C", Ms: "ms", Us: "µs", Percent: "%"}[unit]}`;
}
