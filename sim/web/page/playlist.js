// The play list as a tree, with what plays now and why.
import {get} from "./api.js";
import {byId, fill, make} from "./dom.js";

const panel = byId("playlist");

function branch(items) {
    return make("ul", {}, items.map((item) => make("li", {"aria-current": item.playing ? "true" : null},
        make("span", {class: "node"}, item.text, item.file && item.file !== item.text ? make("code", {}, item.file) : null,
            item.times > 1 ? make("span", {class: "why"}, `${item.times} times`) : null,
            item.schedules > 0 ? make("span", {class: "why"},
                `${item.schedules} ${item.schedules === 1 ? "schedule" : "schedules"}`) : null,
            item.playing ? make("strong", {}, "plays now") : null),
        item.children?.length ? branch(item.children) : null)));
}

async function show() {
    try {
        const {list, file, next, items, why} = await get("/api/playlist");
        fill(panel,
            make("p", {class: "intro"}, make("strong", {}, list || "No list"), file ? [" plays ", make("code", {}, file)] : "",
                why ? `, ${why}` : "", next && next !== file ? ["; next ", make("code", {}, next)] : ""),
            items.length === 0 ? make("p", {class: "hint"}, "The list is empty.")
                : make("div", {class: "tree"}, branch(items)));
    } catch (error) {
        fill(panel, make("p", {class: "hint"}, error.message));
    }
}

export const beginPlayList = () => show;

