// Makes and changes a client, and shows a secret the only time that it can be seen.

import {change} from './api.js';
import {formDialog, openDialog} from './dialog.js';
import {el} from './dom.js';
import {copyButton} from './notify.js';

export function newClientDialog(done) {
    const id = el('input', {type: 'text', id: 'client-id', autocomplete: 'off', spellcheck: 'false', maxlength: 100, placeholder: 'leave empty to generate one'});
    const bundles = bundlesField([]);
    formDialog({
        title: 'New client',
        fields: [el('label', {htmlFor: 'client-id'}, 'Id'), id, bundlesLabel(), bundles],
        button: 'Create',
        fieldOf: (error) => isRefused(error) ? /bundle/.test(error.message) ? bundles : id : null,
        async action() {
            const client = await change('POST', 'clients', {...id.value.trim() && {id: id.value.trim()}, bundle_ids: listed(bundles)});
            return () => showSecret(client.id, client.secret, done);
        },
    });
}

export function bundlesDialog({id, bundle_ids: bundleIds}, title, done) {
    const bundles = bundlesField(bundleIds);
    formDialog({
        title,
        fields: [bundlesLabel(), bundles, el('p.faint', 'It holds from the next request on. A report for another application is refused, and the application drops it.')],
        button: 'Save',
        fieldOf: (error) => isRefused(error) ? bundles : null,
        async action() {
            await change('PUT', `clients/${encodeURIComponent(id)}`, {bundle_ids: listed(bundles)});
            return done;
        },
    });
}

const isRefused = ({status}) => status === 400 || status === 409; // for what is in the fields
const bundlesLabel = () => el('label', {htmlFor: 'client-bundles'}, 'Bundle ids it may send for, one a line; any if empty');
const bundlesField = (values) => el('textarea', {id: 'client-bundles', rows: 3, spellcheck: 'false', placeholder: 'org.example.app', value: values.join('\n')});
const listed = (field) => field.value.split(/[\n,]/).map((line) => line.trim()).filter(Boolean);

/// `done` is called when it has been taken: nothing may come between the reader and a secret that can't be seen again.
export function showSecret(id, secret, done) {
    const dialog = openDialog('The client’s secret', el('.dialog-body',
        el('p', 'This is the only time that it is shown. Put both into the application’s property list.'),
        credential('APIClientID', id), credential('APIClientSecret', secret),
        el('.dialog-buttons', el('button.primary', {type: 'button', onclick: () => dialog.close()}, 'I have it'))), {mustAnswer: true});
    dialog.querySelector('.credential:nth-of-type(2) button').focus();
    dialog.addEventListener('close', done);
}

function credential(name, value) {
    return el('.credential', el('span.faint', name), el('code', value), copyButton(() => value));
}
