// Who may send: the clients whose id and secret the applications carry.

import {ageElement} from './ages.js';
import {change, get} from './api.js';
import {bundlesDialog, newClientDialog, showSecret} from './clientDialogs.js';
import {confirmDialog} from './dialog.js';
import {el, failed, fill, quoted, refill, tableHead} from './dom.js';
import {icon} from './icons.js';
import {say} from './notify.js';
import {visible} from './text.js';

export function showClients({place, signal}) {
    document.title = 'Clients · Wexel';
    const content = el('.settings-content');
    const create = () => newClientDialog(reload);
    fill(place, el('.page-head', el('h1', 'Clients'), el('button.primary', {type: 'button', onclick: create}, icon('plus'), 'New client')),
        el('p.lead', 'An application sends with the id and the secret of a client. A client may be bound to the bundle ids it may send for.'), content);
    reload();

    /// Never rejects: what was done before it is done.
    async function reload() {
        try {
            show(await get('clients', signal));
        } catch (error) {
            failed(content, error, reload);
        }
    }

    function show({clients}) {
        clients.sort((a, b) => a.revoked - b.revoked || a.id.localeCompare(b.id));
        refill(content, clients.length === 0 ? el('.empty', el('h2', 'No clients yet'),
            el('p', 'Create one, and put its id and its secret into your application.'),
            el('button.primary', {type: 'button', onclick: create}, 'Create the first client'))
            : el('.table-scroll', el('table.cards',
                tableHead('Client', 'May send for', 'Created.created', 'Last used', ''),
                el('tbody', clients.map(row)))));
    }

    function row(client) {
        const name = visible(client.id, 60);
        const fixed = client.from_command_line || client.revoked;
        return el('tr', {className: client.revoked ? 'is-off' : '', dataset: {key: client.id}},
            el('th', {scope: 'row'}, quoted(visible(client.id, 120)), client.revoked && el('span.tag', 'revoked'),
                client.from_command_line && el('span.tag', {title: 'Given when the receiver was started; it is changed there'}, 'command line')),
            el('td', {dataset: {name: 'May send for'}}, client.bundle_ids.length ? quoted(visible(client.bundle_ids.join(', '), 600)) : el('span.faint', 'any application')),
            el('td.created', {dataset: {name: 'Created'}}, client.created ? ageElement(client.created, {words: true}) : '–'),
            el('td', {dataset: {name: 'Last used'}}, lastUsed(client)),
            el('td.row-buttons', !fixed && [
                button('Bundle ids', `Bundle ids of ${name}`, () => bundlesDialog(client, `What may ${name} send for?`, reload)),
                button('New secret', `New secret for ${name}`, () => askToRotate(client)),
                button('Revoke', `Revoke ${name}`, () => askToRevoke(client))]));
    }

    function askToRotate({id}) {
        confirmDialog({
            title: `A new secret for ${visible(id, 60)}?`,
            text: 'The old one stops working at once. Applications that carry it keep their reports until they get the new one.',
            button: 'New secret',
            async action() {
                const {secret} = await change('POST', `clients/${encodeURIComponent(id)}/rotate`);
                return () => showSecret(id, secret, reload);
            },
        });
    }

    function askToRevoke({id}) {
        confirmDialog({
            title: `Revoke ${visible(id, 60)}?`,
            text: 'Applications that carry it can’t send any more, for good.',
            button: 'Revoke',
            async action() {
                await change('DELETE', `clients/${encodeURIComponent(id)}`);
                say(`Revoked ${visible(id, 60)}`);
                return reload;
            },
        });
    }
}

/// `fullName` is for who does not see the row that it stands in.
function button(text, fullName, onclick) {
    return el('button.small', {type: 'button', 'aria-label': fullName, onclick}, text);
}

/// Of those of the command line nothing is kept.
function lastUsed({last_used: time, from_command_line: isForeign}) {
    return time ? ageElement(time, {words: true}) : el('span.faint', isForeign ? '–' : 'never');
}
