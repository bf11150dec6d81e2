// The lamps of the face and what the panel around them measures, the same as in the sign's own picture (PNG).

// In units of the pitch, the distance of two lamps.
export const kLampRadius = 0.40;
export const kGlowReach = 2.0;
export const kBezelWidth = 1.5;

// Light adds up linearly; a screen's bytes don't. These are linear brightness.
export const kGamma = 2.2;
export const kPanel = 0.0015;
export const kUnlitLamp = 0.0085;
export const kBezel = 0.014;
export const kBezelEdge = 0.045;
export const kBlueTint = 1.1;
export const kBody = 0.85;
export const kCore = 0.45;
export const kGlow = 0.10;
export const kWhitening = 0.5;

const kSteps = 4096;
export const linear = Float32Array.from({length: 256}, (_, value) => (value / 255) ** kGamma);
export const encoded = Uint8Array.from({length: kSteps + 1},
    (_, step) => Math.round(255 * (step / kSteps) ** (1 / kGamma)));

export class Lamps {
    constructor(width, height) {
        this.width = width;
        this.height = height;
        this.rgb = new Uint8Array(width * height * 3);
    }

    put({x, y, w, h, rgb}) {
        for (let row = 0; row < h; ++row)
            this.rgb.set(rgb.subarray(row * w * 3, (row + 1) * w * 3), ((y + row) * this.width + x) * 3);
    }

    whole() {
        return {x: 0, y: 0, w: this.width, h: this.height, rgb: this.rgb.slice()};
    }

    at(x, y) {
        const index = (y * this.width + x) * 3;
        return this.rgb.subarray(index, index + 3);
    }
}

// Where the lamps lie in a picture with that pitch, in its pixels.
export function panelOf(lamps, pitch) {
    const bezel = Math.round(kBezelWidth * pitch);
    return {
        pitch,
        bezel,
        edge: Math.max(1, Math.floor(pitch / 4)),
        width: Math.round(lamps.width * pitch) + 2 * bezel,
        height: Math.round(lamps.height * pitch) + 2 * bezel,
    };
}

// Lamps look alike only where each begins at the same part of a pixel: whole pitches, halves where they are tiny.
export function evenPitch(pitch) {
    if (pitch >= 4)
        return Math.floor(pitch);
    return pitch >= 1 ? Math.floor(pitch * 2) / 2 : pitch;
}
