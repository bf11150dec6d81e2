// Puts the parts of the page together.
import {beginBox} from "./box.js";
import {beginDevices} from "./devices.js";
import {beginDrives} from "./drives.js";
import {begin} from "./events.js";
import {beginFace} from "./face.js";
import {beginFaults} from "./faults.js";
import {beginHeader} from "./header.js";
import {beginLogs} from "./logs.js";
import {beginMarks} from "./marks.js";
import {beginMenu, openMenu} from "./menu.js";
import {beginPlayList} from "./playlist.js";
import {beginState} from "./state.js";
import {beginTabs} from "./tabs.js";
import {beginTraffic} from "./traffic.js";

if (matchMedia("(width < 700px)").matches) // on a phone the traffic is near the face
    document.querySelectorAll("details.card").forEach((card) => { card.open = false; });
beginHeader();
beginFace();
beginMarks(openMenu);
beginMenu();
beginBox();
beginFaults();
beginTraffic();
beginTabs([
    ["traffic", "Traffic"],
    ["drives", "Drives", beginDrives()],
    ["playlist", "Play list", beginPlayList()],
    ["logs", "Logs", beginLogs()],
    ["state", "State", beginState()],
    ["devices", "Devices", beginDevices()],
]);
begin();
