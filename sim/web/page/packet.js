// One exchange in full: the fields of both packets, and their bytes as hex and text.
import {get} from "./api.js";
import {button, make, tell} from "./dom.js";

// Half as many bytes in a line where there is little room.
const perLine = () => (matchMedia("(width < 700px)").matches ? 8 : 16);

const pairs = (hex) => hex.match(/../g) ?? [];

function textOf(bytes) {
    return bytes.map((pair) => {
        const code = parseInt(pair, 16);
        return code >= 0x20 && code < 0x7F ? String.fromCharCode(code) : "·";
    }).join("");
}

// Lines such as "0000  48 45 4c 4c 4f  HELLO".
function hexDump(hex) {
    const count = perLine();
    const bytes = pairs(hex);
    const lines = [];
    for (let at = 0; at < bytes.length; at += count) {
        const part = bytes.slice(at, at + count);
        lines.push(`${at.toString(16).padStart(4, "0")}  ${part.join(" ").padEnd(count * 3)} ${textOf(part)}`);
    }
    return lines.join("\n");
}

function dump(title, hex) {
    if (!hex)
        return [];
    const count = hex.length / 2;
    return [
        make("h4", {}, `${title}, ${count} ${count === 1 ? "byte" : "bytes"}`),
        make("pre", {tabindex: "0", "aria-label": title}, hexDump(hex)),
    ];
}

async function copy(hex) {
    try {
        await navigator.clipboard.writeText(hex);
        tell("Copied.");
    } catch {
        tell("The browser does not let this page copy.", "error");
    }
}

function packet(title, content) {
    if (content === null)
        return make("section", {}, make("h3", {}, title), make("p", {class: "hint"}, "There was none."));
    return make("section", {},
        make("h3", {}, title, button("Copy hex", () => copy(content.bytes), {class: "quiet small"})),
        make("div", {class: "packet"},
            make("table", {}, make("tbody", {}, content.header.map(({name, value}) =>
                make("tr", {}, make("th", {scope: "row"}, name), make("td", {}, String(value)))))),
            make("div", {}, dump("Payload", content.payload), dump("Extended part", content.extended),
                make("details", {}, make("summary", {}, `All ${content.bytes.length / 2} bytes`),
                    make("pre", {tabindex: "0", class: "bytes"}, hexDump(content.bytes))))));
}

// The packets of the exchange, as an element. Throws an Error if the sign no longer has it.
export async function packetsOf(id) {
    const {request, reply} = await get(`/api/traffic/${encodeURIComponent(id)}`);
    return make("div", {class: "packets"}, packet("Request", request), packet("Reply", reply));
}
