// What can be done with a report: go back, to the next one, save it, delete it.

import {change} from './api.js';
import {confirmDialog} from './dialog.js';
import {el} from './dom.js';
import {icon} from './icons.js';
import {lastShown} from './lastShown.js';
import {resetKeys} from './keyboard.js';
import {neighboursOf} from './neighbours.js';
import {say} from './notify.js';
import {address, go} from './router.js';

/// {element, ready(answer, figure, signal)}: until it is ready, only the way back works.
export function buildBar(id, parameters) {
    const back = address('reports', null, parameters);
    const newer = step('Newer report', 'back');
    const older = step('Older report', 'next');
    const save = el('a.button', {href: `api/reports/${id}/archive`, download: `report-${id}.zip`, title: 'Save everything as one archive'},
        icon('download'), el('span', 'Download'));
    const remove = el('button', {type: 'button', onclick: askToDelete, title: 'Delete the report'}, icon('trash'), el('span', 'Delete'));
    const actions = el('.bar-end', {hidden: true}, el('.steps-nav', newer, older), save, remove);
    const element = el('.bar', el('a.button.quiet', {href: back}, icon('back'), 'Inbox'), id && el('span.faint', `Report ${id}`), actions);
    resetKeys({Escape: () => go(back)});

    async function ready(answer, figure, signal) {
        actions.hidden = false;
        resetKeys({
            Escape: () => go(back),
            k: () => newer.href ? newer.click() : false,
            j: () => older.href ? older.click() : false,
            z: () => figure ? figure.zoom() : false,
            s: () => save.click(),
            Delete: askToDelete,
        });
        try {
            const found = await neighboursOf(id, answer.received, parameters, signal);
            lead(newer, found.newer, parameters);
            lead(older, found.older, parameters);
        } catch {
            // it was left, or there are none to go to
        }
    }

    function askToDelete() {
        confirmDialog({
            title: 'Delete this report?',
            text: 'Its screenshot and its attachments go with it, for good.',
            button: 'Delete',
            async action() {
                await change('DELETE', `reports/${id}`);
                lastShown.reports = lastShown.reports.filter((report) => report.id !== id);
                say(`Deleted report ${id}`);
                go(older.getAttribute('href') ?? back);
            },
        });
    }

    return {element, ready};
}

function step(name, picture) {
    return el('a.button.square', {'aria-label': name, title: name, 'aria-disabled': 'true'}, icon(picture));
}

function lead(link, id, parameters) {
    if (id === null)
        return;
    link.href = address('reports', id, parameters);
    link.removeAttribute('aria-disabled');
}
