// Elements, and the few things that every part of the page does with them. Texts become text nodes, never markup.

// make("button", {class: "quiet", type: "button", onclick: act}, "Text", child): attributes, listeners, children.
export function make(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) {
        if (name.startsWith("on"))
            element.addEventListener(name.slice(2), value);
        else if (value === true)
            element.setAttribute(name, "");
        else if (value !== false && value !== undefined && value !== null)
            element.setAttribute(name, value);
    }
    element.append(...children.flat().filter((child) => child !== null && child !== undefined));
    return element;
}

export const byId = (id) => document.getElementById(id);

export const button = (text, act, attributes = {}) =>
    make("button", {type: "button", onclick: act, ...attributes}, text);

// A switch with its label in front; `act` gets the wanted state. `show(on)` brings it in line with the sign.
export function toggle(text, act) {
    const knob = make("button", {type: "button", role: "switch", "aria-checked": "false", class: "switch"});
    knob.addEventListener("click", () => act(knob.getAttribute("aria-checked") !== "true"));
    const row = make("div", {class: "row"}, make("span", {class: "label"}, text), knob);
    knob.setAttribute("aria-label", text);
    return {row, knob, show: (on) => knob.setAttribute("aria-checked", String(Boolean(on)))};
}

const kHandMs = 600;

// A slider with its label and its value in words. What the sign says waits while the hand is on it.
export function slider(text, {min = 0, max, step = 1, words, act}) {
    const input = make("input", {type: "range", min, max, step, value: min});
    const output = make("output", {}, words(min));
    let touchedMs = -Infinity;
    let later;
    let sent = Promise.resolve();
    let wanted = null;
    input.addEventListener("input", () => {
        touchedMs = performance.now();
        output.textContent = words(Number(input.value));
        if (wanted === null) // one request at a time, and always the last value
            sent = sent.then(() => { const value = wanted; wanted = null; return act(value); });
        wanted = Number(input.value);
    });
    const label = make("label", {class: "row slide"}, make("span", {class: "label"}, text), input, output);
    const show = (value) => {
        clearTimeout(later);
        const restMs = touchedMs + kHandMs - performance.now();
        if (restMs > 0) {
            later = setTimeout(() => show(value), restMs);
            return;
        }
        input.value = value;
        output.textContent = words(Number(input.value));
    };
    return {row: label, input, show};
}

// A line that tells of something for some seconds, for eyes and screen readers.
export function tell(text, kind = "note") {
    const line = make("p", {class: `toast ${kind}`}, text);
    byId("toasts").append(line);
    setTimeout(() => line.remove(), kind === "error" ? 8000 : 4000);
}

// Asks with the browser's own modal dialog; true for yes.
export function ask(question, yes) {
    return new Promise((resolve) => {
        const dialog = make("dialog", {class: "ask", "aria-label": question},
            make("form", {method: "dialog"}, make("p", {}, question),
                make("div", {class: "buttons"},
                    make("button", {value: "no", class: "quiet"}, "Cancel"),
                    make("button", {value: "yes", class: "danger"}, yes))));
        dialog.addEventListener("close", () => {
            dialog.remove();
            resolve(dialog.returnValue === "yes");
        });
        document.body.append(dialog);
        dialog.showModal();
    });
}

// Replaces the children only if they are others, so that focus and selection survive.
export function fill(element, ...children) {
    const fresh = make("div", {}, ...children);
    const same = fresh.childNodes.length === element.childNodes.length &&
        [...fresh.childNodes].every((child, index) => child.isEqualNode(element.childNodes[index]));
    if (!same)
        element.replaceChildren(...fresh.childNodes);
}

export function bytesText(count) {
    if (count < 1024)
        return `${count} B`;
    const units = ["KiB", "MiB", "GiB"];
    let value = count / 1024;
    let unit = 0;
    for (; value >= 1024 && unit < units.length - 1; ++unit)
        value /= 1024;
    return `${value < 10 ? value.toFixed(1) : Math.round(value)} ${units[unit]}`;
}
