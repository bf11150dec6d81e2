// What the page asks of the sign, beside the events.
import {tell} from "./dom.js";

const kChangesAtOnce = 10000;

// Without the password that the address of the page may hold, which browsers refuse here.
const whole = (path) => location.origin + path;

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
export const fileUrl = (path) => `/api/file?${new URLSearchParams({path})}`;
export const upload = (path, file) => send(fileUrl(path), file, "application/octet-stream");

// As many requests as it takes: the sign reads a megabyte of each.
export async function change(changes) {
    for (let at = 0; at < changes.length; at += kChangesAtOnce) {
        if (!await post("/api/condition", {changes: changes.slice(at, at + kChangesAtOnce)}))
            return;
    }
}
