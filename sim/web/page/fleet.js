// All signs of a program in small: the faces of those that are on the screen, asked for again and again.
import {ask, get} from "./api.js";
import {byId, make} from "./dom.js";
import {bytesOf} from "./stream.js";

const kEveryMs = 1000;
const kRetryMs = 3000;
const kFacesAtOnce = 64; // more are refused

const seen = new Map(); // tiles on the screen, by the names of their signs
let tiles = [];

function draw(tile, {asleep, version, width, height, rgb}) {
    tile.version = version ?? null;
    if (asleep) {
        tile.face.replaceChildren(make("span", {class: "asleep"}, "not asked yet"));
    } else if (rgb !== undefined) {
        const canvas = make("canvas", {width, height});
        const bytes = bytesOf(rgb);
        const image = new ImageData(width, height);
        for (let from = 0, to = 0; from < bytes.length; from += 3, to += 4) {
            image.data.set(bytes.subarray(from, from + 3), to);
            image.data[to + 3] = 255;
        }
        canvas.getContext("2d").putImageData(image, 0, 0);
        tile.face.replaceChildren(canvas);
    }
}

async function ask64(names) {
    const {faces} = await ask("/api/faces", Object.fromEntries(names.map((name) => [name, seen.get(name).version])));
    for (const [name, face] of Object.entries(faces)) {
        if (seen.has(name))
            draw(seen.get(name), face);
    }
}

function showLive(live) {
    document.body.classList.toggle("gone", !live);
    byId("live").dataset.live = live ? "yes" : "no";
    byId("live").firstElementChild.textContent = live ? "live" : "gone";
}

async function follow() {
    let pause = kEveryMs;
    try {
        const names = document.hidden ? [] : [...seen.keys()];
        for (let at = 0; at < names.length; at += kFacesAtOnce)
            await ask64(names.slice(at, at + kFacesAtOnce).filter((name) => seen.has(name)));
        showLive(true);
    } catch { // the program has gone; it may come back
        showLive(false);
        pause = kRetryMs;
    }
    setTimeout(follow, pause);
}

// A face that leaves the screen is thrown away.
const watcher = new IntersectionObserver((changes) => {
    for (const {target, isIntersecting} of changes) {
        const tile = tiles[target.dataset.index];
        if (isIntersecting) {
            seen.set(tile.name, tile);
        } else if (seen.delete(tile.name)) {
            tile.version = null;
            tile.face.replaceChildren();
        }
    }
}, {rootMargin: "200px"});

function makeTile({name, at}, index) {
    const face = make("div", {class: "face"});
    const item = make("li", {"data-index": index},
        make("a", {href: `/sign/${encodeURIComponent(name)}/`}, face, make("strong", {}, name), " ",
            make("span", {class: "at"}, at)));
    watcher.observe(item);
    return {name, at, face, item, version: null};
}

function filter() {
    const wanted = byId("filter").value.trim().toLowerCase();
    for (const {name, at, item} of tiles)
        item.hidden = !`${name} ${at}`.toLowerCase().includes(wanted);
}

const {signs} = await get("/api/signs");
tiles = signs.map(makeTile);
byId("signs").append(...tiles.map(({item}) => item));
byId("about").textContent = `${signs.length} signs`;
byId("filter").addEventListener("input", filter);
follow();
