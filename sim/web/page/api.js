// What the page asks of the sign, beside the events.
import {tell} from "./dom.js";

const kChangesAtOnce = 10000;

// Where the sign is: at the root, or at /sign/NAME among many.
export const base = location.pathname.replace(/\/[^/]*$/, "");

// Without the password that the address of the page may hold, which browsers refuse here.
const whole = (path) => location.origin + base + path;

async function answerOf(response) {
    if (response.ok)
        return response;
    let reason = `${response.status} ${response.statusText}`;
    try {
        reason = (await response.json()).error ?? reason;
    } catch { // not from the sign itself
    }
    throw new Error(reason);
}

// The answer as an object. Throws an Error with the sign's own words.
export async function get(path, parameters = {}) {
    const query = new URLSearchParams(parameters).toString();
    return (await answerOf(await fetch(query ? `${whole(path)}?${query}` : whole(path)))).json();
}

// What a question gives that is too long for an address. Throws as get does.
export async function ask(path, object) {
    const how = {method: "POST", headers: {"Content-Type": "application/json"}, body: JSON.stringify(object)};
    return (await answerOf(await fetch(whole(path), how))).json();
}

// True if it was done; what went wrong is told to the user.
async function send(path, body, type) {
    try {
        await answerOf(await fetch(whole(path), {method: "POST", headers: {"Content-Type": type}, body}));
        return true;
    } catch (error) {
        tell(error instanceof TypeError ? "The sign does not answer." : error.message, "error");
        return false;
    }
}

export const post = (path, object) => send(path, JSON.stringify(object), "application/json");
const filePath = (path) => `/api/file?${new URLSearchParams({path})}`;
export const fileUrl = (path) => base + filePath(path);
export const upload = (path, file) => send(filePath(path), file, "application/octet-stream");

// As many requests as it takes: the sign reads a megabyte of each.
export async function change(changes) {
    for (let at = 0; at < changes.length; at += kChangesAtOnce) {
        if (!await post("/api/condition", {changes: changes.slice(at, at + kChangesAtOnce)}))
            return;
    }
}
