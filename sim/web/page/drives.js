// The drives: folders and files to look at, download, upload and delete.
import {fileUrl, get, post, upload} from "./api.js";
import {ask, button, byId, bytesText, fill, make, tell} from "./dom.js";
import {table} from "./table.js";

const kPicture = /\.(png|jpe?g|gif|bmp)$/i;
const kLargestFile = 64 * 1024 * 1024;

const panel = byId("drives");
let path = ""; // what is seen
let wanted = ""; // and what was asked for

const join = (folder, name) => (folder === "" ? name : `${folder.replace(/\/$/, "")}/${name}`);
const nameOf = (full) => full.split("/").pop();

async function sendAll(files) {
    if (path === "") {
        tell("Open a drive first.", "error");
        return;
    }
    const folder = path;
    for (const file of files) {
        if (file.size > kLargestFile)
            tell(`${file.name} is larger than ${bytesText(kLargestFile)}.`, "error");
        else if (await upload(join(folder, file.name), file))
            tell(`${file.name} is on the sign.`);
    }
    show(path);
}

async function remove(full) {
    if (await ask(`Delete ${full}?`, "Delete") && await post("/api/delete", {path: full}))
        tell(`${nameOf(full)} is deleted.`);
    show(path);
}

function crumbs() {
    const parts = path === "" ? [] : path.split("/").filter(Boolean);
    const steps = [["Drives", ""], ...parts.map((part, at) => [part, parts.slice(0, at + 1).join("/")])];
    return make("nav", {class: "crumbs", "aria-label": "Folder"}, steps.map(([name, target], at) =>
        button(name, () => show(target), {class: "quiet", "aria-current": at === steps.length - 1 ? "true" : null})));
}

function pictureOf(full) {
    if (!kPicture.test(full))
        return null;
    const picture = make("img", {src: fileUrl(full), alt: "", loading: "lazy", class: "thumbnail"});
    picture.addEventListener("error", () => picture.remove());
    return picture;
}

function rowOf(entry) {
    const full = join(path, entry.name);
    const time = path === "" ? "" : (entry.time ?? "").replace("T", " ");
    if (entry.folder)
        return [button(entry.name, () => show(full), {class: "quiet folder"}), "", time, ""];
    return [
        make("span", {class: "file"}, pictureOf(full), make("span", {}, entry.name)),
        bytesText(entry.bytes), time,
        make("span", {class: "actions"},
            make("a", {class: "button quiet small", href: fileUrl(full), download: entry.name,
                "aria-label": `Download ${entry.name}`}, "Download"),
            button("Delete", () => remove(full), {class: "quiet small", "aria-label": `Delete ${entry.name}`})),
    ];
}

async function show(folder) {
    wanted = folder;
    let found;
    try {
        found = await get("/api/files", {path: folder});
    } catch (error) {
        tell(error instanceof TypeError ? "The sign does not answer." : error.message, "error");
        if (folder !== "" && !(error instanceof TypeError)) // a folder that has gone
            show("");
        return;
    }
    if (folder !== wanted) // the user has gone on
        return;
    path = folder;
    const choose = make("input", {type: "file", multiple: true, class: "unseen", tabindex: "-1",
        "aria-label": "Files to upload", onchange: (event) => sendAll([...event.target.files])});
    const sorted = [...found.entries].sort((one, other) => Number(other.folder) - Number(one.folder)
        || one.name.localeCompare(other.name));
    fill(panel,
        make("div", {class: "bar"}, crumbs(), choose,
            path === "" ? null : button("Upload", () => choose.click(), {title: "Or drop files here"}),
            button("Look again", () => show(path), {class: "quiet"})),
        sorted.length === 0 ? make("p", {class: "hint"}, "Nothing is in here. Files can be dropped here.")
            : table(["Name", "Size", "Time", ""], sorted.map(rowOf), "Files"));
}

function takeDrops() {
    panel.addEventListener("dragover", (event) => {
        event.preventDefault();
        panel.classList.add("drop");
    });
    panel.addEventListener("dragleave", () => panel.classList.remove("drop"));
    panel.addEventListener("drop", (event) => {
        event.preventDefault();
        panel.classList.remove("drop");
        sendAll([...event.dataTransfer.files]);
    });
}

export function beginDrives() {
    takeDrops();
    return () => show(wanted);
}
