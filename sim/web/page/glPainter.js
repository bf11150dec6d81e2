// Draws the lamps by the graphics card: each pixel of the screen gathers the light of the lamps around it.
import * as look from "./lamps.js";

const float = (value) => value.toFixed(4);

const kVertices = `#version 300 es
void main() {
    vec2 corner = vec2((gl_VertexID << 1) & 2, gl_VertexID & 2);
    gl_Position = vec4(corner * 2.0 - 1.0, 0.0, 1.0);
}`;

const kFragments = `#version 300 es
precision highp float;
uniform highp sampler2D light; // linear, a texel for each lamp
uniform vec2 extent;
uniform float pitch, bezel, edge;
out vec4 colour;

float bodyAt(float far) { return clamp((${float(look.kLampRadius)} - far) * pitch + 0.5, 0.0, 1.0); }

float strengthAt(float far) {
    float fade = max(0.0, 1.0 - far / ${float(look.kGlowReach)});
    float core = far / ${float(look.kLampRadius * 0.55)};
    return bodyAt(far) * (${float(look.kBody)} + ${float(look.kCore)} * exp(-core * core)) +
           ${float(look.kGlow)} * fade * fade * exp(-1.6 * far);
}

float frame(vec2 at) {
    vec2 inwards = min(at, extent - at) - 0.5;
    float depth = min(inwards.x, inwards.y);
    return depth < edge ? ${float(look.kBezelEdge)}
        : depth < bezel - edge ? ${float(look.kBezel)} : ${float(look.kPanel)};
}

void main() {
    vec2 at = vec2(gl_FragCoord.x, extent.y - gl_FragCoord.y);
    vec2 place = (at - bezel) / pitch;
    ivec2 cell = ivec2(floor(place));
    ivec2 size = textureSize(light, 0);
    float unlit = frame(at);
    if (cell.x >= 0 && cell.y >= 0 && cell.x < size.x && cell.y < size.y)
        unlit = mix(${float(look.kPanel)}, ${float(look.kUnlitLamp)}, bodyAt(distance(place, vec2(cell) + 0.5)));
    vec3 sum = vec3(unlit, unlit, unlit * ${float(look.kBlueTint)});
    for (int y = max(cell.y - 2, 0); y <= min(cell.y + 2, size.y - 1); ++y) {
        for (int x = max(cell.x - 2, 0); x <= min(cell.x + 2, size.x - 1); ++x) {
            vec3 lamp = texelFetch(light, ivec2(x, y), 0).rgb;
            if (lamp != vec3(0.0))
                sum += lamp * strengthAt(distance(place, vec2(x, y) + 0.5));
        }
    }
    float peak = max(1.0, max(sum.r, max(sum.g, sum.b)));
    sum = mix(sum / peak, vec3(1.0), min(1.0, (peak - 1.0) * ${float(look.kWhitening)}));
    colour = vec4(pow(floor(sum * 4096.0) / 4096.0, vec3(${float(1 / look.kGamma)})), 1.0);
}`;

function compile(gl) {
    const program = gl.createProgram();
    for (const [kind, text] of [[gl.VERTEX_SHADER, kVertices], [gl.FRAGMENT_SHADER, kFragments]]) {
        const shader = gl.createShader(kind);
        gl.shaderSource(shader, text);
        gl.compileShader(shader);
        gl.attachShader(program, shader);
    }
    gl.linkProgram(program);
    return gl.getProgramParameter(program, gl.LINK_STATUS) ? program : null;
}

// The picture stays readable after it has been drawn, so that it can be saved.
const kWanted = {alpha: false, antialias: false, depth: false, preserveDrawingBuffer: true};

// Whether there is a graphics card. Where the processor plays its part, it is slower than without.
function hasCard() {
    const gl = document.createElement("canvas").getContext("webgl2");
    if (gl === null)
        return false;
    const names = gl.getExtension("WEBGL_debug_renderer_info");
    const name = gl.getParameter(names === null ? gl.RENDERER : names.UNMASKED_RENDERER_WEBGL);
    gl.getExtension("WEBGL_lose_context")?.loseContext();
    return !/swiftshader|llvmpipe|software/i.test(name);
}

// Null where the browser has no WebGL 2 with a card.
export function glPainter(canvas) {
    const gl = hasCard() ? canvas.getContext("webgl2", kWanted) : null;
    if (gl === null)
        return null;
    let program = compile(gl);
    if (program === null)
        return null;
    let floats = new Float32Array(0);

    const prepare = () => {
        gl.useProgram(program);
        gl.bindTexture(gl.TEXTURE_2D, gl.createTexture());
        for (const name of [gl.TEXTURE_MIN_FILTER, gl.TEXTURE_MAG_FILTER])
            gl.texParameteri(gl.TEXTURE_2D, name, gl.NEAREST);
        for (const name of [gl.TEXTURE_WRAP_S, gl.TEXTURE_WRAP_T])
            gl.texParameteri(gl.TEXTURE_2D, name, gl.CLAMP_TO_EDGE);
    };
    prepare();
    canvas.addEventListener("webglcontextlost", (event) => event.preventDefault());
    canvas.addEventListener("webglcontextrestored", () => {
        program = compile(gl);
        prepare();
        canvas.dispatchEvent(new Event("repaint"));
    });

    return (lamps, panel) => {
        if (gl.isContextLost())
            return;
        if (floats.length !== lamps.width * lamps.height * 4)
            floats = new Float32Array(lamps.width * lamps.height * 4);
        for (let from = 0, to = 0; from < lamps.rgb.length; from += 3, to += 4) {
            floats[to] = look.linear[lamps.rgb[from]];
            floats[to + 1] = look.linear[lamps.rgb[from + 1]];
            floats[to + 2] = look.linear[lamps.rgb[from + 2]];
        }
        gl.viewport(0, 0, panel.width, panel.height);
        gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA32F, lamps.width, lamps.height, 0, gl.RGBA, gl.FLOAT, floats);
        gl.uniform2f(gl.getUniformLocation(program, "extent"), panel.width, panel.height);
        for (const name of ["pitch", "bezel", "edge"])
            gl.uniform1f(gl.getUniformLocation(program, name), panel[name]);
        gl.drawArrays(gl.TRIANGLES, 0, 3);
    };
}
