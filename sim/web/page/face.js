// The face: the lamps on their canvas, as large as there is room or as the user wants it.
import {button, byId} from "./dom.js";
import {on} from "./events.js";
import {glPainter} from "./glPainter.js";
import {evenPitch, kBezelWidth, Lamps, panelOf} from "./lamps.js";
import {plainPainter} from "./plainPainter.js";

const kMostPixels = 16 * 1024 * 1024;
const kLongestSide = 8192;
const kLargestPitch = 40; // in pixels of CSS, for faces of few lamps
const kSmallestPitch = 0.5;
const kZoomStep = 1.25;

const wall = byId("wall");
const canvas = byId("lamps");
let paint = null;
let lamps = new Lamps(1, 1);
let panel = panelOf(lamps, 1);
let zoom = null; // pitch in pixels of CSS that the user wants; null: what fits
let due = false;
const resized = [];

// Where to find things for those that draw over the face.
export const face = {
    lamps: () => lamps,
    panel: () => panel,
    onResize: (listener) => resized.push(listener),
};

function fittingPitch() {
    const style = getComputedStyle(wall);
    const room = wall.clientWidth - parseFloat(style.paddingLeft) - parseFloat(style.paddingRight);
    const full = document.fullscreenElement !== null;
    const height = full ? wall.clientHeight - parseFloat(style.paddingTop) - parseFloat(style.paddingBottom)
        : Math.max(160, innerHeight * 0.62);
    const around = 2 * kBezelWidth;
    const pitch = Math.min(room / (lamps.width + around), height / (lamps.height + around));
    return Math.max(kSmallestPitch, full ? pitch : Math.min(pitch, kLargestPitch));
}

function layOut() {
    const scale = devicePixelRatio;
    let pitch = evenPitch((zoom ?? fittingPitch()) * scale);
    const fits = () => {
        panel = panelOf(lamps, pitch);
        return panel.width * panel.height <= kMostPixels && Math.max(panel.width, panel.height) <= kLongestSide;
    };
    while (!fits())
        pitch = evenPitch(pitch * 0.9);
    for (const layer of [canvas, byId("marks")]) {
        if (layer.width !== panel.width || layer.height !== panel.height)
            [layer.width, layer.height] = [panel.width, panel.height];
        layer.style.width = `${panel.width / scale}px`;
        layer.style.height = `${panel.height / scale}px`;
    }
    resized.forEach((listener) => listener());
    repaint();
}

function repaint() {
    if (due)
        return;
    due = true;
    requestAnimationFrame(() => {
        due = false;
        paint(lamps, panel);
        canvas.dataset.painted = Number(canvas.dataset.painted ?? 0) + 1;
    });
}

export function zoomBy(steps) {
    zoom = steps === 0 ? null : Math.max(1, panel.pitch / devicePixelRatio * kZoomStep ** steps);
    if (zoom !== null && evenPitch(zoom * devicePixelRatio) === panel.pitch) // too small a step for whole pitches
        zoom = (panel.pitch + steps) / devicePixelRatio;
    const middle = (wall.scrollLeft + wall.clientWidth / 2) / wall.scrollWidth;
    layOut();
    wall.scrollLeft = middle * wall.scrollWidth - wall.clientWidth / 2;
}

export function toggleFullScreen() {
    if (document.fullscreenElement !== null)
        document.exitFullscreen();
    else
        byId("stage").requestFullscreen();
}

export function beginFace() {
    paint = glPainter(canvas) ?? plainPainter(canvas);
    canvas.addEventListener("repaint", repaint);
    on("sign", ({width, height}) => {
        lamps = new Lamps(width, height);
        byId("marks").setAttribute("aria-label", `Face of ${width} by ${height} pixels`);
        layOut();
    });
    on("face", (rects) => {
        rects.forEach((rect) => lamps.put(rect));
        repaint();
    });
    new ResizeObserver(layOut).observe(wall);
    addEventListener("resize", layOut);
    document.addEventListener("fullscreenchange", () => { zoom = null; layOut(); });
    byId("tools").append(
        button("−", () => zoomBy(-1), {"aria-label": "Smaller", title: "Smaller (−)"}),
        button("Fit", () => zoomBy(0), {title: "As large as there is room (0)"}),
        button("+", () => zoomBy(1), {"aria-label": "Larger", title: "Larger (+)"}),
        button("Full screen", toggleFullScreen, {title: "Full screen (F)"}));
}
