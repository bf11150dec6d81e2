// What lies over the face: the cursor and the selected pixels, bad lamps, the tiles; and the ways to select.
import {button, byId} from "./dom.js";
import {on} from "./events.js";
import {face, toggleFullScreen, zoomBy} from "./face.js";

const canvas = byId("marks");
const context = canvas.getContext("2d");
let condition = {lamps: [], hotTiles: [], tileErrors: {}, lockedTiles: []};
let tiles = null;
let tilesShown = false;
let anchor = null; // a corner of the selection, the cursor is the other one
let cursor = null;
let hovered = null;
let chosen = null; // the selection or tile that the menu is about
let dragging = false;
let openMenu = () => {};
let tilesButton;

function selectionOf(first, second) {
    return {
        left: Math.min(first.x, second.x),
        top: Math.min(first.y, second.y),
        right: Math.max(first.x, second.x),
        bottom: Math.max(first.y, second.y),
    };
}

// Left, top, width and height of a part of the face on the canvas.
function boxOf({left, top, right, bottom}) {
    const {bezel, pitch} = face.panel();
    return [bezel + left * pitch, bezel + top * pitch, (right - left + 1) * pitch, (bottom - top + 1) * pitch];
}

// The tile at that place of the list of addresses, as a part of the face.
function tileBox(row, column) {
    const {width, height} = face.lamps();
    return {
        left: column * tiles.width,
        top: row * tiles.height,
        right: Math.min(width, (column + 1) * tiles.width) - 1,
        bottom: Math.min(height, (row + 1) * tiles.height) - 1,
    };
}

function faultsOf(tile) {
    const words = [];
    if (condition.hotTiles.includes(tile))
        words.push("hot");
    if (condition.tileErrors[tile] !== undefined)
        words.push(condition.tileErrors[tile]);
    if (condition.lockedTiles.includes(tile))
        words.push("locked");
    return words;
}

function drawTile(tile, part) {
    const [x, y, w, h] = boxOf(part);
    const words = faultsOf(tile);
    const scale = devicePixelRatio;
    const size = Math.max(10 * scale, Math.min(h / 4, 15 * scale));
    if (words.length > 0) {
        context.fillStyle = words.includes("hot") ? "rgb(255 80 40 / 24%)" : "rgb(255 176 46 / 20%)";
        context.fillRect(x, y, w, h);
    }
    context.strokeStyle = "rgb(255 255 255 / 45%)";
    context.lineWidth = scale;
    context.strokeRect(Math.round(x) + 0.5, Math.round(y) + 0.5, Math.round(w) - 1, Math.round(h) - 1);
    context.font = `600 ${size}px system-ui, sans-serif`;
    context.textBaseline = "top";
    [String(tile), ...words].forEach((word, line) => {
        const top = y + size * (0.2 + 1.3 * line);
        context.fillStyle = "rgb(0 0 0 / 72%)";
        const width = Math.min(w - size / 2, context.measureText(word).width + size / 2);
        context.fillRect(x + size / 4, top, width, size * 1.3);
        context.fillStyle = line === 0 ? "#fff" : "#ffd08a";
        context.fillText(word, x + size / 2, top + size * 0.2, w - size);
    });
}

function drawBox(part, colour) {
    const [x, y, w, h] = boxOf(part);
    const thick = Math.max(1, 1.5 * devicePixelRatio);
    context.lineWidth = thick * 3;
    context.strokeStyle = "rgb(0 0 0 / 70%)";
    context.strokeRect(x, y, w, h);
    context.lineWidth = thick;
    context.strokeStyle = colour;
    context.strokeRect(x, y, w, h);
}

function draw() {
    context.clearRect(0, 0, canvas.width, canvas.height);
    if (tilesShown && tiles !== null)
        tiles.addresses.forEach((row, y) => row.forEach((tile, x) => drawTile(tile, tileBox(y, x))));
    const {width, height} = face.lamps();
    const looking = hovered !== null || chosen !== null || tilesShown || document.activeElement === canvas;
    const bad = looking ? condition.lamps.filter(({x, y}) => x < width && y < height) : [];
    for (const place of new Set(bad.map(({x, y}) => `${x},${y}`))) {
        const [x, y] = place.split(",").map(Number);
        const [left, top, side] = boxOf({left: x, top: y, right: x, bottom: y});
        context.strokeStyle = "rgb(255 70 70 / 85%)";
        context.lineWidth = Math.max(1, side / 10);
        context.beginPath();
        context.arc(left + side / 2, top + side / 2, side * 0.46, 0, 2 * Math.PI);
        context.stroke();
    }
    if (chosen !== null)
        drawBox(chosen, "#ffb02e");
    else if (anchor !== null && cursor !== null && (dragging || document.activeElement === canvas))
        drawBox(selectionOf(anchor, cursor), "#ffb02e");
}

const hex = (colour) => `#${[...colour].map((byte) => byte.toString(16).padStart(2, "0")).join("")}`;

export const colourText = (x, y) => hex(face.lamps().at(x, y));

function tell() {
    const place = hovered ?? cursor;
    const {width, height} = face.lamps();
    const seen = place !== null && place.x < width && place.y < height;
    byId("readout").textContent = seen ? `x ${place.x}  y ${place.y}  ${colourText(place.x, place.y)}` : "";
}

function pixelAt(event) {
    const {bezel, pitch} = face.panel();
    const {width, height} = face.lamps();
    const bounds = canvas.getBoundingClientRect();
    const clamp = (value, count) => Math.min(count - 1, Math.max(0, Math.floor(value)));
    const scale = canvas.width / bounds.width;
    return {
        x: clamp(((event.clientX - bounds.left) * scale - bezel) / pitch, width),
        y: clamp(((event.clientY - bounds.top) * scale - bezel) / pitch, height),
    };
}

// Opens the menu for the selection, or for the tile below it.
function choose() {
    if (tilesShown && tiles !== null) {
        const row = Math.floor(cursor.y / tiles.height);
        const column = Math.floor(cursor.x / tiles.width);
        const tile = tiles.addresses[row]?.[column];
        if (tile === undefined)
            return;
        chosen = tileBox(row, column);
        openMenu({tile, part: chosen, condition});
    } else {
        chosen = selectionOf(anchor, cursor);
        openMenu({tile: null, part: chosen, condition});
    }
    draw();
}

export function unchoose() {
    chosen = null;
    draw();
}

// Where the chosen part lies, in pixels of CSS from the corner of the canvas.
export function chosenBounds() {
    const [left, top, width, height] = boxOf(chosen).map((value) => value / devicePixelRatio);
    return {left, top, width, height};
}

export function showTiles(shown) {
    tilesShown = shown && tiles !== null;
    tilesButton.setAttribute("aria-pressed", String(tilesShown));
    draw();
}

function move(event, dx, dy) {
    const {width, height} = face.lamps();
    const from = cursor ?? {x: 0, y: 0};
    const far = event.ctrlKey ? 8 : 1;
    cursor = {
        x: Math.min(width - 1, Math.max(0, from.x + dx * far)),
        y: Math.min(height - 1, Math.max(0, from.y + dy * far)),
    };
    if (!event.shiftKey || anchor === null)
        anchor = cursor;
    hovered = null;
    tell();
    draw();
}

function onKey(event) {
    const steps = {ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1]};
    if (event.key in steps)
        move(event, ...steps[event.key]);
    else if ((event.key === "Enter" || event.key === " ") && cursor !== null)
        choose();
    else
        return;
    event.preventDefault();
}

// Keys that work wherever nothing is typed.
function onPageKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || event.target.closest("input, select, textarea, dialog"))
        return;
    const acts = {
        f: toggleFullScreen,
        t: () => showTiles(!tilesShown),
        "+": () => zoomBy(1),
        "-": () => zoomBy(-1),
        0: () => zoomBy(0),
    };
    acts[event.key.toLowerCase()]?.();
}

function followPointer() {
    canvas.addEventListener("pointerdown", (event) => {
        if (event.button !== 0)
            return;
        dragging = true;
        chosen = null;
        cursor = pixelAt(event);
        anchor = event.shiftKey && anchor !== null ? anchor : cursor;
        if (event.pointerType === "mouse")
            canvas.setPointerCapture(event.pointerId);
        draw();
    });
    canvas.addEventListener("pointermove", (event) => {
        const entered = hovered === null;
        hovered = pixelAt(event);
        if (dragging)
            cursor = hovered;
        if (dragging || entered)
            draw();
        tell();
    });
    canvas.addEventListener("pointerup", () => {
        if (dragging) {
            dragging = false;
            choose();
        }
    });
    canvas.addEventListener("pointercancel", () => { dragging = false; draw(); }); // the page is scrolled
    canvas.addEventListener("pointerleave", () => { hovered = null; tell(); draw(); });
}

// `open` is told of each selection: {tile or null, part, condition}.
export function beginMarks(open) {
    openMenu = open;
    tilesButton = button("Tiles", () => showTiles(!tilesShown),
        {"aria-pressed": "false", title: "Tiles over the face (T)"});
    byId("tools").prepend(tilesButton);
    face.onResize(draw);
    followPointer();
    canvas.addEventListener("keydown", onKey);
    canvas.addEventListener("focus", () => { cursor ??= anchor ??= {x: 0, y: 0}; tell(); draw(); });
    canvas.addEventListener("blur", draw);
    document.addEventListener("keydown", onPageKey);
    on("face", tell);
    on("sign", () => { anchor = cursor = hovered = null; tell(); });
    on("state", (state) => {
        condition = state.condition;
        tiles = state.tiles;
        tilesButton.hidden = tiles === null;
        draw();
    });
}
