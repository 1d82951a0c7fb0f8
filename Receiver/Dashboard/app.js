// Begins: who is there, and which page is asked for.

import {connection, get, setCsrf} from './api.js';
import {showAccount} from './account.js';
import {showApplications} from './applications.js';
import {showClients} from './clients.js';
import {fill} from './dom.js';
import {showInbox} from './inbox.js';
import {resetKeys} from './keyboard.js';
import {showLogin} from './login.js';
import {showReport} from './report.js';
import {current, onRoute} from './router.js';
import {buildShell, connectionLine, refreshApplications} from './shell.js';

const pages = {applications: showApplications, clients: showClients, account: showAccount};
let shell = null;
let open = null; // the page that is shown: {leave, update?, name}

function pageFor(route) {
    if (route.page === 'reports' && route.id !== null)
        return showReport;
    return pages[route.page] ?? showInbox;
}

function show(route) {
    const page = pageFor(route);
    shell.mark(route);
    for (const dialog of document.querySelectorAll('dialog[open]'))
        dialog.close();
    if (open?.page === page && open.update)
        return open.update(route);
    open?.leaving.abort();
    resetKeys();
    const leaving = new AbortController();
    open = {page, leaving};
    refreshApplications(leaving.signal);
    open.update = page({place: shell.main, route, signal: leaving.signal})?.update;
}

function askForPassword() {
    open?.leaving.abort();
    open = shell = null;
    resetKeys();
    showLogin(enter);
}

function enter(session) {
    setCsrf(session.csrf);
    shell = buildShell(session);
    fill(document.body, shell.element);
    show(current());
}

async function begin() {
    onRoute((route) => shell && show(route));
    connection.addEventListener('logged-out', () => shell && askForPassword());
    fill(document.body, connectionLine());
    try {
        enter(await get('session'));
    } catch {
        askForPassword();
    }
}

begin();
