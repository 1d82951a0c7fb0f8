// Makes a client, and shows a secret the only time that it can be seen.

import {change} from './api.js';
import {openDialog} from './dialog.js';
import {el, fill} from './dom.js';
import {copyButton} from './notify.js';

export function clientDialog(done) {
    const id = el('input', {type: 'text', id: 'client-id', autocomplete: 'off', spellcheck: 'false', maxlength: 100, placeholder: 'made up for you if empty'});
    const bundles = el('textarea', {id: 'client-bundles', rows: 3, spellcheck: 'false', placeholder: 'org.example.app'});
    const problem = el('p.problem', {role: 'alert', hidden: true});
    const form = el('form.dialog-body', {onsubmit: submit},
        el('label', {htmlFor: 'client-id'}, 'Id'), id,
        el('label', {htmlFor: 'client-bundles'}, 'Bundle ids it may send for, one a line; any if empty'), bundles, problem,
        el('.dialog-buttons', el('button', {type: 'button', onclick: () => dialog.close()}, 'Cancel'), el('button.primary', {type: 'submit'}, 'Create')));
    const dialog = openDialog('New client', form);
    id.focus();

    async function submit(event) {
        event.preventDefault();
        const body = {bundle_ids: bundles.value.split(/[\n,]/).map((line) => line.trim()).filter(Boolean)};
        if (id.value.trim())
            body.id = id.value.trim();
        try {
            const client = await change('POST', 'clients', body);
            dialog.close();
            showSecret(client.id, client.secret);
            await done();
        } catch (error) {
            fill(problem, error.message).hidden = false;
        }
    }
}

export function showSecret(id, secret) {
    const dialog = openDialog('The client’s secret', el('.dialog-body',
        el('p', 'This is the only time that it is shown. Put both into the application’s property list.'),
        credential('APIClientID', id), credential('APIClientSecret', secret),
        el('.dialog-buttons', el('button.primary', {type: 'button', onclick: () => dialog.close()}, 'I have it'))));
}

function credential(name, value) {
    return el('.credential', el('span.faint', name), el('code', value), copyButton(() => value));
}
