// Begins: who is there, and which page is asked for.

import {connection, get, setCsrf} from './api.js';
import {showAccount} from './account.js';
import {refreshApplications} from './applicationNames.js';
import {showApplications} from './applications.js';
import {showClients} from './clients.js';
import {fill} from './dom.js';
import {showInbox} from './inbox.js';
import {resetKeys} from './keyboard.js';
import {showLogin} from './login.js';
import {showReport} from './report.js';
import {current, onRoute} from './router.js';
import {buildShell, connectionLine} from './shell.js';

const pages = {applications: showApplications, clients: showClients, account: showAccount};
let shell = null; // built at the first log-in
let open = null; // the page that is shown: {page, leaving, update?}; null until someone is logged in

function pageFor(route) {
    if (route.page === 'reports' && route.id !== null)
        return showReport;
    return pages[route.page] ?? showInbox;
}

function show(route) {
    const page = pageFor(route);
    shell.mark(route);
    for (const dialog of document.querySelectorAll('dialog[open]:not(.must-answer)'))
        dialog.close();
    if (open?.page === page && open.update)
        return open.update(route);
    open?.leaving.abort();
    resetKeys();
    const leaving = new AbortController();
    open = {page, leaving};
    shell.main.removeAttribute('aria-busy');
    shell.main.focus({preventScroll: true});
    const applications = refreshApplications(leaving.signal);
    applications.catch(() => {}); // but for the page that lists them, as they were before is good enough
    open.update = page({place: shell.main, route, signal: leaving.signal, applications})?.update;
}

function askForPassword(reason = '') {
    open?.leaving.abort();
    open = null;
    resetKeys();
    showLogin(enter, reason);
}

function enter(session) {
    setCsrf(session.csrf);
    shell ??= buildShell(session);
    fill(shell.main);
    fill(document.body, shell.element);
    show(current());
}

async function begin() {
    onRoute((route) => open && show(route));
    connection.addEventListener('logged-out', () => open && askForPassword());
    connection.addEventListener('session-ended', () => open && askForPassword('Your session has ended. Log in to go on.'));
    fill(document.body, connectionLine());
    try {
        enter(await get('session'));
    } catch {
        askForPassword();
    }
}

begin();
