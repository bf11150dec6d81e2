// The traffic: a line for each exchange, of which only those in sight are elements of the page.
import {base, get} from "./api.js";
import {button, byId, make} from "./dom.js";
import {on} from "./events.js";
import {Exchanges} from "./exchanges.js";
import {packetsOf} from "./packet.js";

const kRowHeight = 30; // as the style has it
const kSpare = 8; // rows above and below what is in sight
const kColumns = ["Time", "Host", "Line", "Command", "Code", "Bytes", "Result", "Took"];

const exchanges = new Exchanges();
let held = []; // while paused
let paused = false;
let selected = null; // id
let olderThereAre = true;
let loading = false;
let drawing = false;
let view, space, count, pauseButton, details, filterInput, refusedOnly;

function timeText(ms) {
    const time = new Date(ms);
    const two = (value) => String(value).padStart(2, "0");
    return `${two(time.getHours())}:${two(time.getMinutes())}:${two(time.getSeconds())}.`
        + String(time.getMilliseconds()).padStart(3, "0");
}

function tookText(us) {
    if (us < 1000)
        return `${us} µs`;
    return us < 1e6 ? `${(us / 1000).toFixed(us < 10000 ? 1 : 0)} ms` : `${(us / 1e6).toFixed(1)} s`;
}

const resultText = ({code, text, remark, replyBytes}) => {
    const result = replyBytes === 0 && !code ? "no answer" : code ? `${code} ${text}` : text || "done";
    return remark ? `${result} · ${remark}` : result;
};

const nameOf = ({name}) => name || "no request";

const kindOf = ({code, replyBytes}) => (replyBytes === 0 ? "silent" : code && code !== 36864 ? "refused" : "done");

function makeRow(line, exchange) {
    const cells = [
        timeText(exchange.timeMs), exchange.host, exchange.channel, nameOf(exchange),
        exchange.name ? `${exchange.major}, ${exchange.minor}${exchange.tile ? " tile" : ""}` : "",
        `${exchange.requestBytes} → ${exchange.replyBytes}`, resultText(exchange), tookText(exchange.durationUs),
    ];
    const row = make("div", {
        role: "row", id: `exchange${exchange.id}`, class: `exchange ${kindOf(exchange)}`,
        "aria-rowindex": line + 2, "aria-selected": String(exchange.id === selected),
    }, cells.map((cell) => make("span", {role: "gridcell", title: cell}, cell)));
    row.style.top = `${line * kRowHeight}px`;
    row.addEventListener("click", () => select(exchange.id));
    return row;
}

function drawNow() {
    drawing = false;
    space.style.height = `${exchanges.count() * kRowHeight}px`;
    view.setAttribute("aria-rowcount", exchanges.count() + 1);
    const first = Math.max(0, Math.floor(view.scrollTop / kRowHeight) - kSpare);
    const last = Math.min(exchanges.count(), Math.ceil((view.scrollTop + view.clientHeight) / kRowHeight) + kSpare);
    const fresh = [];
    for (let line = first; line < last; ++line)
        fresh.push(makeRow(line, exchanges.at(line)));
    space.replaceChildren(...fresh);
    const waiting = held.length > 0 ? `, ${held.length} more while paused` : "";
    count.textContent = `${exchanges.count()} ${exchanges.count() === 1 ? "line" : "lines"}${waiting}`;
    byId("trafficEmpty").hidden = exchanges.count() > 0;
    const line = selected === null ? -1 : exchanges.lineOf(selected);
    if (line >= first && line < last)
        view.setAttribute("aria-activedescendant", `exchange${selected}`);
    else
        view.removeAttribute("aria-activedescendant");
    if (last > exchanges.count() - kSpare)
        loadOlder();
}

function draw() {
    if (!drawing)
        requestAnimationFrame(drawNow);
    drawing = true;
}

function take(fresh) {
    const top = view.scrollTop;
    const added = exchanges.add(fresh);
    if (top > 0) { // what is read stays where it is
        space.style.height = `${exchanges.count() * kRowHeight}px`;
        view.scrollTop = top + added * kRowHeight;
    }
    draw();
}

async function loadOlder() {
    if (loading || !olderThereAre || exchanges.isFull() || (exchanges.oldest() ?? 1) === 1) // the first one of all
        return;
    loading = true;
    try {
        const {exchanges: older} = await get("/api/traffic", {before: exchanges.oldest(), limit: 500});
        olderThereAre = older.length > 0;
        exchanges.addOlder(older);
        draw();
    } catch { // the sign has gone, and everything will begin anew
    }
    loading = false;
}

function setPaused(now) {
    paused = now;
    pauseButton.textContent = paused ? "Go on" : "Pause";
    pauseButton.setAttribute("aria-pressed", String(paused));
    if (!paused)
        take(held.splice(0));
    draw();
}

function applyFilter() {
    const wanted = filterInput.value.trim().toLowerCase();
    const refused = refusedOnly.checked;
    exchanges.filter((exchange) => (!refused || kindOf(exchange) !== "done")
        && (wanted === "" || [nameOf(exchange), exchange.host, exchange.channel, `${exchange.major}, ${exchange.minor}`,
            resultText(exchange)].some((text) => text.toLowerCase().includes(wanted))));
    view.scrollTop = 0;
    draw();
}

async function select(id) {
    const exchange = exchanges.at(exchanges.lineOf(id));
    if (exchange === undefined) // thrown away meanwhile
        return;
    selected = id;
    draw();
    openDetails(true);
    const title = make("div", {class: "title"}, make("h3", {}, nameOf(exchange)),
        make("span", {class: kindOf(exchange)}, resultText(exchange)),
        button("×", closeDetails, {class: "close quiet", "aria-label": "Close"}));
    let packets;
    try {
        packets = await packetsOf(id);
    } catch (error) {
        packets = make("p", {class: "hint"}, error.message);
    }
    if (selected !== id)
        return;
    details.replaceChildren(title, packets);
    details.scrollIntoView({block: "nearest"});
}

// The list makes room for them, and the selected line stays in sight.
function openDetails(open) {
    if (details.hidden !== open)
        return;
    details.hidden = !open;
    byId("traffic").classList.toggle("open", open);
    if (open)
        reveal(exchanges.lineOf(selected));
}

function reveal(line) {
    const top = line * kRowHeight;
    if (top < view.scrollTop)
        view.scrollTop = top;
    else if (top + kRowHeight > view.scrollTop + view.clientHeight)
        view.scrollTop = top + kRowHeight - view.clientHeight;
}

function closeDetails() {
    openDetails(false);
    selected = null;
    view.focus();
    draw();
}

function onKey(event) {
    const page = Math.max(1, Math.floor(view.clientHeight / kRowHeight) - 1);
    const step = {ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -Infinity, End: Infinity}[event.key];
    if (event.key === "Escape" && !details.hidden)
        closeDetails();
    if (step === undefined || exchanges.count() === 0)
        return;
    event.preventDefault();
    const from = selected === null ? (step > 0 ? -1 : 0) : exchanges.lineOf(selected);
    const line = Math.min(exchanges.count() - 1, Math.max(0, from + step));
    reveal(line);
    select(exchanges.at(line).id);
}

function build() {
    filterInput = make("input",
        {type: "search", placeholder: "Filter: name, host, code", "aria-label": "Filter", oninput: applyFilter});
    refusedOnly = make("input", {type: "checkbox", onchange: applyFilter});
    pauseButton = button("Pause", () => setPaused(!paused), {"aria-pressed": "false"});
    count = make("output", {class: "count"});
    space = make("div", {class: "space", role: "rowgroup"});
    view = make("div", {class: "exchanges", role: "grid", tabindex: "0", "aria-label": "Exchanges, newest first",
        onscroll: draw, onkeydown: onKey},
        make("p", {id: "trafficEmpty", class: "hint"}, "Nothing has come over the line yet. Try: vxctl show HELLO"),
        space);
    details = make("section", {class: "details", "aria-label": "Exchange", hidden: true});
    byId("traffic").append(
        make("div", {class: "bar"},
            filterInput, make("label", {class: "check"}, refusedOnly, "failures only"), count, pauseButton,
            make("a", {class: "button", href: `${base}/api/traffic.pcap`, download: "vxsim.pcap"}, "Save as pcap")),
        make("div", {class: "exchangeHead", role: "presentation"}, kColumns.map((name) => make("span", {}, name))),
        view, details);
}

export function beginTraffic() {
    build();
    new ResizeObserver(draw).observe(view);
    on("sign", () => {
        exchanges.clear();
        held = [];
        olderThereAre = true;
        openDetails(false);
        selected = null;
        draw();
    });
    on("traffic", ({exchanges: fresh}) => {
        if (!paused)
            return take(fresh);
        held.push(...fresh);
        held = held.slice(-10000);
        draw();
    });
}
