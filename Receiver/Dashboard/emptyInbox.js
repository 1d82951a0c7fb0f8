// What to do when there is nothing to see.

import {el} from './dom.js';
import {copyButton} from './notify.js';
import {address} from './router.js';

export function emptyInbox() {
    const receiver = new URL('../', location.href.split('#')[0]).href;
    return el('.empty',
        el('h2', 'No reports yet'),
        el('p', 'Three steps, and they appear here by themselves:'),
        el('ol.steps',
            el('li', el('a', {href: address('clients')}, 'Create a client'), '. You get its id and its secret.'),
            el('li', 'Put them into the application’s property list as ', el('code', 'APIClientID'), ' and ', el('code', 'APIClientSecret'), '.'),
            el('li', 'Let the library know this receiver: ', el('code', 'WEXEL_API_URL'), ' is ', el('code', receiver), ' ', copyButton(() => receiver))));
}

export function nothingFound() {
    return el('.empty',
        el('h2', 'No report matches'),
        el('p', el('a', {href: address('reports')}, 'Show all reports')));
}
