// Draws the lamps without a graphics card: each lit lamp throws its light on the pixels around it.
import * as look from "./lamps.js";

// What one lamp does to a square of pixels centred on it.
function stampOf(pitch) {
    const margin = Math.ceil(look.kGlowReach * pitch);
    const side = Math.ceil(pitch) + 2 * margin;
    const body = new Float32Array(side * side);
    const strength = new Float32Array(side * side);
    const middle = margin + pitch / 2 - 0.5;
    for (let y = 0, at = 0; y < side; ++y) {
        for (let x = 0; x < side; ++x, ++at) {
            const far = Math.hypot(x - middle, y - middle) / pitch;
            const fade = Math.max(0, 1 - far / look.kGlowReach);
            const core = Math.exp(-((far / (look.kLampRadius * 0.55)) ** 2));
            body[at] = Math.min(1, Math.max(0, (look.kLampRadius - far) * pitch + 0.5));
            strength[at] = body[at] * (look.kBody + look.kCore * core)
                + look.kGlow * fade * fade * Math.exp(-1.6 * far);
        }
    }
    const dark = Uint16Array.from({length: side}, (_, y) => {
        const row = strength.subarray(y * side, (y + 1) * side);
        const first = row.findIndex((value) => value > 0);
        const last = row.findLastIndex((value) => value > 0);
        return first < 0 ? side : Math.min(first, side - 1 - last);
    });
    return {margin, side, body, strength, dark};
}

// The panel with all lamps dark.
function unlit(lamps, panel, stamp) {
    const {width, height, pitch, bezel, edge} = panel;
    const light = new Float32Array(width * height);
    for (let y = 0; y < height; ++y) {
        for (let x = 0; x < width; ++x) {
            const depth = Math.min(x, y, width - 1 - x, height - 1 - y);
            light[y * width + x] = depth < edge ? look.kBezelEdge : depth < bezel - edge ? look.kBezel : look.kPanel;
        }
    }
    for (let row = 0; row < lamps.height; ++row) {
        for (let column = 0; column < lamps.width; ++column) {
            const left = bezel + Math.floor(column * pitch) - stamp.margin;
            const top = bezel + Math.floor(row * pitch) - stamp.margin;
            for (let y = stamp.margin; y < stamp.side - stamp.margin; ++y) {
                for (let x = stamp.margin; x < stamp.side - stamp.margin; ++x)
                    light[(top + y) * width + left + x] =
                        look.kPanel + (look.kUnlitLamp - look.kPanel) * stamp.body[y * stamp.side + x];
            }
        }
    }
    return light;
}

export function plainPainter(canvas) {
    const context = canvas.getContext("2d", {alpha: false});
    let drawnFor = "";
    let stamp, ground, sums, image;

    const prepare = (lamps, panel) => {
        stamp = stampOf(panel.pitch);
        ground = unlit(lamps, panel, stamp);
        sums = new Float32Array(ground.length * 3);
        image = context.createImageData(panel.width, panel.height);
        image.data.fill(255);
    };

    const shine = (panel, column, row, red, green, blue) => {
        const left = panel.bezel + Math.floor(column * panel.pitch) - stamp.margin;
        const top = panel.bezel + Math.floor(row * panel.pitch) - stamp.margin;
        const endY = Math.min(stamp.side, panel.height - top);
        for (let y = Math.max(0, -top); y < endY; ++y) {
            const beginX = Math.max(stamp.dark[y], -left); // a circle, of which the corners are dark
            const endX = Math.min(stamp.side - stamp.dark[y], panel.width - left);
            let from = y * stamp.side + beginX;
            let to = ((top + y) * panel.width + left + beginX) * 3;
            for (let x = beginX; x < endX; ++x, ++from, to += 3) {
                const strength = stamp.strength[from];
                sums[to] += red * strength;
                sums[to + 1] += green * strength;
                sums[to + 2] += blue * strength;
            }
        }
    };

    const develop = () => {
        const data = image.data;
        for (let from = 0, to = 0; from < sums.length; from += 3, to += 4) {
            const peak = Math.max(sums[from], sums[from + 1], sums[from + 2]);
            if (peak <= 1) {
                for (let channel = 0; channel < 3; ++channel)
                    data[to + channel] = look.encoded[(sums[from + channel] * 4096) | 0];
                continue;
            }
            const white = Math.min(1, (peak - 1) * look.kWhitening);
            for (let channel = 0; channel < 3; ++channel) {
                const share = sums[from + channel] / peak;
                data[to + channel] = look.encoded[((share + (1 - share) * white) * 4096) | 0];
            }
        }
        context.putImageData(image, 0, 0);
    };

    return (lamps, panel) => {
        const key = [panel.width, panel.height, panel.pitch].join();
        if (key !== drawnFor)
            prepare(lamps, panel);
        drawnFor = key;
        for (let from = 0, to = 0; from < ground.length; ++from, to += 3) {
            sums[to] = sums[to + 1] = ground[from];
            sums[to + 2] = ground[from] * look.kBlueTint;
        }
        for (let row = 0, at = 0; row < lamps.height; ++row) {
            for (let column = 0; column < lamps.width; ++column, at += 3) {
                const [red, green, blue] = [lamps.rgb[at], lamps.rgb[at + 1], lamps.rgb[at + 2]];
                if (red | green | blue)
                    shine(panel, column, row, look.linear[red], look.linear[green], look.linear[blue]);
            }
        }
        develop();
    };
}
