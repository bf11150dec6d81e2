// What sign this is, whether it is there, what it plays, and who may reach it where.
import {byId, button, fill, make, tell} from "./dom.js";
import {on} from "./events.js";

async function copy(text) {
    try {
        await navigator.clipboard.writeText(text);
        tell(`Copied: ${text}`);
    } catch { // not on a page that is not secure
        tell(text);
    }
}

const lastName = (path) => path.split(/[\\/]/).pop();

function showPlaying({playing, power, line}) {
    const file = playing?.file;
    fill(byId("playing"),
        ...(file ? ["Plays ", make("strong", {title: file}, lastName(file))] : ["Nothing plays"]),
        playing?.next && playing.next !== file ? ` · next ${lastName(playing.next)}` : "",
        playing?.why ? make("span", {class: "why"}, ` · ${playing.why}`) : "");
    const badges = [power === false ? "power is off" : "", line?.unplugged ? "unplugged" : ""].filter(Boolean);
    byId("badge").textContent = badges.join(" · ");
    byId("badge").hidden = badges.length === 0;
}

export function beginHeader() {
    let title = "vxsim";
    on("live", (live) => {
        document.title = live ? title : `${title} – gone`;
        document.body.classList.toggle("gone", !live);
        byId("gone").hidden = live;
        byId("live").dataset.live = live ? "yes" : "no";
        byId("live").firstElementChild.textContent = live ? "live" : "gone";
    });
    on("sign", (sign) => {
        title = sign.name || `vxsim ${sign.width}×${sign.height}`;
        const kind = sign.controller ? "traffic signal controller, " : "";
        const name = sign.name ? `${sign.name}, ` : "";
        byId("all").hidden = !sign.name;
        byId("about").textContent = `${name}${kind}${sign.width} × ${sign.height}, version ${sign.version}`;
        byId("about").title = sign.folder ?? "";
        const address = (line) => line.replace(/^(udp|tcp) /, "$1://");
        fill(byId("lines"), ...sign.lines.map((line) => make("li", {},
            button(line, () => copy(address(line)), {class: "quiet", title: "Copy the address"}))));
    });
    on("state", showPlaying);
}
